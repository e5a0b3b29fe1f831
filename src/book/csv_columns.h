// Which field each column of a CSV file holds: by its header in a program's language, by common
// words, or by its cells.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "book/csv_cells.h"
#include "book/csv_fields.h"
#include "book/record.h"

namespace orvik::book {

// What decided about a column.
enum class CsvGround : std::uint8_t {
    None,    // nothing: it is kept under its header
    Header,  // a program's own word
    Words,   // a common word
    Cells,   // what its cells look like
    Tag,     // a number beside its header
    Place,   // where it stands
    Asked    // the user
};

struct CsvColumn {
    std::string_view Header;         // empty where there is none
    std::string_view Name = "none";  // of the field, also of one that vCard has not: "mileage"
    const CsvField* Field = nullptr;
    std::uint32_t Number = 0;  // of a numbered column
    CsvGround Ground = CsvGround::None;
    bool Unsure = false;             // other things look as its cells do
    FoundOrder Order;                // of a column of dates
    std::size_t KindColumn = kNone;  // which says home or work of this one
    bool Used = false;               // a cell held something

    static constexpr std::size_t kNone = ~std::size_t{0};
};

struct CsvColumns {
    std::vector<CsvColumn> All;
    std::string_view Program;   // empty where no program's words are there
    std::string_view Language;  // "de"; empty where no words decided
    bool ManyInCell = false;    // several values of a cell are parted by " ::: "
    // How what vCard has no name for is called, before its header.
    std::string_view Carried = kCarriedFromCsv;
};

// A column that the user decides about.
struct CsvMapping {
    std::string Header;
    const CsvField* Field = nullptr;
};

// ParseMapping: "HEADER=field", at the last "="; without a field where nobody knows its name.
[[nodiscard]] CsvMapping ParseMapping(std::string_view text);

// What there is to decide by.
struct CsvTop {
    std::span<const std::string_view> Header;  // UTF-8; empty where there is none
    std::size_t Columns = 0;
    bool Ragged = false;  // rows have fewer cells or more, without a header
    // The cells of the first rows, by column; bytes as they stand.
    std::vector<std::vector<std::string_view>> Cells;
};

// MatchColumns: a program's words where at least three headers and more than half of them are its
// own, else common words, else cells. Headers must live as long as what is returned.
//   "Vorname", "Nachname", "E-Mail-Adresse" -> Outlook, German: given, family, email1
[[nodiscard]] CsvColumns MatchColumns(const CsvTop& top, std::span<const CsvMapping> asked);

// SentenceOf: what was decided about the columns that hold something.
//   columns matched by header, German: "Vorname" -> given name, "Foo" -> kept under its header
[[nodiscard]] std::string SentenceOf(const CsvColumns& columns);

// ColumnName: what a column without a header is called, by its number from 0: "column 3".
[[nodiscard]] std::string ColumnName(std::size_t column);

}  // namespace orvik::book
