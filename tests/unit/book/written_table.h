// A table that was written, as cells by their headers.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "book/arena.h"
#include "book/csv_rows.h"
#include "book/read_csv.h"
#include "book/write_csv.h"
#include "unit/book/shown_book.h"

namespace orvik::book::test {

inline void ReadTable(Book& book, std::uint32_t file, Charset& charset) {
    ReadCsv(book, file, charset, {});
}

inline std::vector<std::vector<std::string>> RowsOf(std::string_view csv) {
    csv.remove_prefix(csv.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    Arena texts;
    CsvRows rows(csv, ',', texts);
    std::vector<std::vector<std::string>> all;
    for (CsvRow row; rows.Next(row);) {
        all.emplace_back(row.Cells.begin(), row.Cells.end());
    }
    return all;
}

// "Header: cell" for each cell of a row that is not empty, the first row being 1.
inline std::string Filled(std::string_view csv, std::size_t row) {
    const auto rows = RowsOf(csv);
    std::string filled;
    for (std::size_t i = 0; row < rows.size() && i < rows[row].size(); ++i) {
        if (!rows[row][i].empty()) {
            filled += rows[0][i] + ": " + Escaped(rows[row][i]) + "\n";
        }
    }
    return filled;
}

// The lines of a card, in a card.
inline std::string Card(std::string_view lines) {
    return "BEGIN:VCARD\nVERSION:3.0\n" + std::string(lines) + "END:VCARD\n";
}

struct Written {
    Written(CsvProgram program, std::string bytes, ReadBook::Reader reader = ReadVCard)
        : read(reader, std::move(bytes)), csv(WriteCsv(read.book, program)) {}

    [[nodiscard]] std::string Row(std::size_t row = 1) const { return Filled(csv, row); }
    [[nodiscard]] std::string Told() const { return test::Told(read.book); }

    ReadBook read;
    std::string csv;
};

}  // namespace orvik::book::test
