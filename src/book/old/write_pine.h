// Writes a book as the address book of Pine and Alpine. Format: docs/formats/pine.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WritePine: an entry for each person and list, and one more for each further address of a person,
// in ASCII with LF; other letters are encoded words. What became of each value goes to the book's
// report.
[[nodiscard]] std::string WritePine(Book& book);

}  // namespace orvik::book
