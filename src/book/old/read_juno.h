// Reads the address book of Juno. Format: docs/formats/juno.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

//   "Type:Entry\nName:Al\n" -> "line 1 begins an entry"
[[nodiscard]] std::optional<std::string> JunoEvidence(const Source& source);

// ReadJuno: a contact for each entry and each mailing list that is not marked as deleted.
void ReadJuno(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book
