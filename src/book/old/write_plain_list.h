// Writes a book as a list of addresses, an entry a line. Format: docs/formats/working-text.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WritePlainList: "Ada" <ada@example.org> for each person, in UTF-8 with CR LF. What became of each
// value goes to the book's report.
[[nodiscard]] std::string WritePlainList(Book& book);

}  // namespace orvik::book
