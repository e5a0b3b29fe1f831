// Writes a book as Juno keeps it. Format: docs/formats/juno.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WriteJuno: a block of lines for each person, then one for each list, in windows-1252 with CR LF.
// What became of each value goes to the book's report.
[[nodiscard]] std::string WriteJuno(Book& book);

}  // namespace orvik::book
