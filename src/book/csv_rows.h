// The rows of comma separated values: RFC 4180, and what programs make of it. A cell in quotes may
// hold separators, line ends and doubled quotes.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "book/arena.h"
#include "book/report.h"

namespace orvik::book {

struct CsvRow {
    std::vector<std::string_view> Cells;  // as they are read; of a row without a letter none
    std::uint32_t Number = 0;             // of its first line, from 1
    std::uint32_t Last = 0;               // of its last one
    std::string_view Span;                // with its end
    Reason Doubt = Reason::None;
    std::string_view DoubtAt;  // the cell that is doubtful
};

class CsvRows {
 public:
    // Cells whose quotes are doubled are copied into texts; both must outlive this.
    // first_line is the number of the line that the text begins with.
    CsvRows(std::string_view text, char separator, Arena& texts, std::uint32_t first_line = 1);

    // The next row; false at the end of the text. Lines without a letter are passed over.
    //   'a;"b;""c"""' by ';' -> a, b;"c"
    // A quote that nothing closes is a letter as any other, and so is one inside of a cell.
    bool Next(CsvRow& row);

 private:
    // How a cell in quotes goes on.
    struct Quoted {
        std::size_t End = 0;  // where the quote stands that closes it; npos for none
        bool Odd = false;     // there are quotes in it that are not doubled
    };

    void TakeRow(CsvRow& row);
    std::string_view TakeCell(CsvRow& row);
    std::optional<std::string_view> TakeQuoted(CsvRow& row);
    [[nodiscard]] Quoted FindClose(std::size_t from);
    [[nodiscard]] bool EndsCellAt(std::size_t at) const;
    [[nodiscard]] bool BeginsCellAt(std::size_t at) const;
    [[nodiscard]] std::size_t LengthOfEndAt(std::size_t at) const;
    void LookForLostQuote(std::string_view cell, CsvRow& row);
    void Doubt(CsvRow& row, Reason reason, std::string_view cell) const;

    std::string_view text_;
    char separator_;
    Arena& texts_;
    std::size_t at_ = 0;
    std::uint32_t line_;
    // What was found behind a quote holds for each other one up to there, so that no byte is looked
    // at twice.
    std::size_t known_from_ = 0;
    std::size_t known_to_ = 0;
    Quoted known_;
    std::size_t columns_ = 0;  // of the first row
};

}  // namespace orvik::book
