// Writes a book as the tagged text that Pegasus Mail imports. Format: docs/formats/pegasus.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WritePegasusText: ten labels for each person, in windows-1252 with CR LF. What became of each
// value goes to the book's report, and so does what is longer than the program keeps.
[[nodiscard]] std::string WritePegasusText(Book& book);

}  // namespace orvik::book
