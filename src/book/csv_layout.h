// The columns that a program writes, of the table of header words.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "book/csv_words.h"
#include "book/write_csv.h"

namespace orvik::book {

// How many numbered columns of each sort a book needs: "E-mail 1", "E-mail 2".
struct CsvNumbered {
    std::uint32_t Emails = 0;
    std::uint32_t Phones = 0;
    std::uint32_t Posts = 0;
    std::uint32_t Relations = 0;
    std::uint32_t Urls = 0;

    // More make every row longer; what is behind them goes into the notes.
    static constexpr std::uint32_t kMost = 30;
};

struct CsvLayoutColumn {
    std::string Header;
    std::string_view Name;  // of the field, also of one that vCard has not: "mileage"
    const CsvField* Field = nullptr;
    std::uint32_t Number = 0;  // of a numbered column
};

// CsvTableOf: the words that a program writes, in English.
[[nodiscard]] const CsvTable& CsvTableOf(CsvProgram program);

class CsvLayout {
 public:
    static constexpr std::size_t kNone = ~std::size_t{0};

    CsvLayout(CsvProgram program, const CsvNumbered& numbered);

    [[nodiscard]] std::span<const CsvLayoutColumn> Columns() const { return columns_; }
    // The place of a field; kNone for one that has no column.
    [[nodiscard]] std::size_t Find(std::string_view name, std::uint32_t number = 0) const;

 private:
    void Add(const CsvWord& word, std::uint32_t number);

    std::vector<CsvLayoutColumn> columns_;
    std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace orvik::book
