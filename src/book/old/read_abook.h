// The address book of abook. Format: docs/formats/abook.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

// Why a source is such a book.
[[nodiscard]] std::optional<std::string> AbookEvidence(const Source& source);

// Whether an entry has a field of this name.
[[nodiscard]] bool IsAbookKeyword(std::string_view key);
// Whether a line begins an entry.
[[nodiscard]] bool IsAbookSection(std::string_view line);

// Each section that is not about the format becomes a person.
void ReadAbook(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book
