// Writes a book as aliases of mutt. Format: docs/formats/mailrc.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WriteMutt: an alias for each address and for each list, in UTF-8 with LF. Who has no nickname is
// given a short name. What became of each value goes to the book's report.
[[nodiscard]] std::string WriteMutt(Book& book);

}  // namespace orvik::book
