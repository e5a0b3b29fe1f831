// Writes a book as the page in which Netscape 2 and 3 keep it. Format:
// docs/formats/netscape3-html.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WriteNetscape3: an entry for each person, then a folder for each list, in windows-1252 with CR
// LF; other letters as entities. What became of each value goes to the book's report.
[[nodiscard]] std::string WriteNetscape3(Book& book);

}  // namespace orvik::book
