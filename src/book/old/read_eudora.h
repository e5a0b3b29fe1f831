// The nicknames of Eudora. Format: docs/formats/eudora.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

// Why a source is a book of nicknames, or of the form that the oldest versions had.
[[nodiscard]] std::optional<std::string> EudoraEvidence(const Source& source);

// A nickname becomes a person, or a list where it stands for several addresses or for another
// nickname.
void ReadEudora(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book
