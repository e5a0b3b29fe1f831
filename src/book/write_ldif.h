// Writes a book as LDIF. Format: docs/formats/ldif.md.

#pragma once

#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/ldif_sets.h"

namespace orvik::book {

// WriteLdif: the records of all contacts, in ASCII, with LF, in their order. Without a set records
// that nobody changed stay byte for byte, and others are written for Mozilla. What became of each
// value goes to the book's report.
[[nodiscard]] std::string WriteLdif(Book& book, std::optional<LdifAttributes> set);

}  // namespace orvik::book
