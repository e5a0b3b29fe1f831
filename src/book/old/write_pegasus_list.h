// Writes a book as a distribution list of Pegasus Mail. Format: docs/formats/pegasus.md.

#pragma once

#include <string>

#include "book/address_book.h"

namespace orvik::book {

// WritePegasusList: the list that everybody of the book is in, with its settings, else a list of
// all people without a title; in windows-1252 with CR LF. A file holds one list, so any other is
// lost. What became of each value goes to the book's report.
[[nodiscard]] std::string WritePegasusList(Book& book);

}  // namespace orvik::book
