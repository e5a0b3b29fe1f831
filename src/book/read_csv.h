// Reads CSV into a book, as programs write it. Format: docs/formats/csv-headers.md.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/csv_columns.h"

namespace orvik::book {

// What was found out about a table besides its contacts.
struct CsvFound {
    std::string Program;                // "Outlook"; empty for none
    std::string Sentence;               // "columns matched by header, German: ..."
    std::vector<std::string> NotThere;  // headers that the user asked for and that are not there
};

// NotThere: the headers that a user asked for and that no column has.
[[nodiscard]] std::vector<std::string> NotThere(const CsvColumns& columns,
                                                std::span<const CsvMapping> asked);

// ReadCsv: adds a contact for each row of a source to its book, and what was odd about it to its
// report. A column that is no field of vCard is kept as X-ORVIK-CSV-header. Time is linear.
CsvFound ReadCsv(Book& book,
                 std::uint32_t file,
                 Charset& charset,
                 std::span<const CsvMapping> asked);

}  // namespace orvik::book
