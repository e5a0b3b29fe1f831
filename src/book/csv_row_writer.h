// Rows of CSV, by RFC 4180. The cells are kept from row to row, so that nothing is allocated anew.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::book {

class CsvRowWriter {
 public:
    // The text must outlive this; it is appended to.
    // line_end is behind rows, line_break inside of a cell.
    CsvRowWriter(std::size_t columns,
                 std::string_view line_end,
                 std::string_view line_break,
                 std::string& text)
        : cells_(columns), line_end_(line_end), line_break_(line_break), text_(text) {}

    // A cell of the row that is being made, UTF-8 without quotes.
    [[nodiscard]] std::string& Cell(std::size_t column) { return cells_[column]; }
    [[nodiscard]] bool IsFree(std::size_t column) const {
        return column < cells_.size() && cells_[column].empty();
    }
    [[nodiscard]] std::string_view LineBreak() const { return line_break_; }
    // Appends a text whose lines end as those of the program do.
    void AppendLines(std::string_view text, std::size_t column);

    // Ends the row. One of empty cells is none, as readers pass over it; returns whether it was.
    bool End();

 private:
    std::vector<std::string> cells_;
    std::string_view line_end_;
    std::string_view line_break_;
    std::string& text_;
};

// AppendCsvCell: a value as a cell, in quotes where it needs them.
//   "Abbott, Ada" -> "\"Abbott, Ada\""
void AppendCsvCell(std::string_view value, std::string& to);

}  // namespace orvik::book
