// Writes a book as abook keeps it. Format: docs/formats/abook.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WriteAbook: a section for each person, in UTF-8 with LF; lists become groups of their members.
// What has no key goes into the notes. What became of each value goes to the book's report.
[[nodiscard]] std::string WriteAbook(Book& book);

}  // namespace orvik::book
