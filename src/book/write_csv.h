// Writes a book as the CSV of a program. Format: docs/formats/csv-headers.md.

#pragma once

#include <cstdint>
#include <string>

#include "book/address_book.h"

namespace orvik::book {

enum class CsvProgram : std::uint8_t { Thunderbird, Google, Outlook, OutlookNew };

// WriteCsv: a row for each person, in their order, with the program's own columns: in windows-1252
// for Outlook, in UTF-8 for all others. What has no column goes into the notes where a person can
// read it there; the lists of the book become labels where the program has any. What became of each
// value goes to the book's report. Time is linear.
[[nodiscard]] std::string WriteCsv(Book& book, CsvProgram program);

}  // namespace orvik::book
