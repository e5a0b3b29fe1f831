// Reads the directory that cc:Mail exports. Format: docs/formats/cc-mail.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/source.h"

namespace orvik::book {

//   "Name: Al\nLocn: R\nAddr: PO al@b\n" -> "line 1 begins an entry"
[[nodiscard]] std::optional<std::string> CcMailEvidence(const Source& source);

// ReadCcMail: a contact for each name.
void ReadCcMail(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book
