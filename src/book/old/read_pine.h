// The address book of Pine and Alpine. Format: docs/formats/pine.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

// Why a source is such a book, and no other table with tabs.
[[nodiscard]] std::optional<std::string> PineEvidence(const Source& source);

// An entry becomes a person, or a list where its addresses are in parentheses.
void ReadPine(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book
