// The words that the headers of one file are.

#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "book/csv_columns.h"
#include "book/csv_words.h"

namespace orvik::book {

class CsvHeaderWords {
 public:
    explicit CsvHeaderWords(const CsvTop& top);

    [[nodiscard]] const CsvHeaderKey& KeyAt(std::size_t column) const { return keys_[column]; }

    // The program and language with most of the headers, at least three and more than half of them;
    // null for none.
    [[nodiscard]] const CsvTable* Program() const { return program_; }

    // The language that most headers are words of; empty for none.
    [[nodiscard]] std::string_view Tongue() const { return tongue_; }

    // What a header means in a table; of several meanings the one that stands there. Null for none.
    [[nodiscard]] const CsvWord* InTable(const CsvTable& table, std::size_t column) const;

    // What a header may mean in a language, likely ones first: common words, those of programs, the
    // same in English, and, where nothing says which language it is, what all of them agree on.
    [[nodiscard]] std::vector<const CsvWord*> ByTongue(std::string_view language,
                                                       std::size_t column) const;

 private:
    void FindProgram();
    void FindPlaces();
    void FindTongue();
    [[nodiscard]] std::vector<const CsvWord*> WordsIn(const CsvTable& table,
                                                      std::size_t column) const;
    [[nodiscard]] const CsvWord* OrWhole(const CsvWord& word,
                                         const CsvTable& table,
                                         std::size_t column) const;
    [[nodiscard]] const CsvWord* ByOrder(const std::vector<const CsvWord*>& words,
                                         std::size_t column) const;
    [[nodiscard]] bool IsElsewhere(std::string_view field, std::size_t column) const;

    std::vector<CsvHeaderKey> keys_;
    std::unordered_map<std::string_view, std::vector<std::size_t>> columns_of_;
    const CsvTable* program_ = nullptr;
    std::string_view tongue_;
    // A program's words, or more words of one language than of any other.
    bool sure_ = false;
    // A column whose word means one thing, and where that stands in its program's files.
    struct Place {
        std::size_t Column = 0;
        std::uint32_t Position = 0;
        std::string_view Field;
    };
    std::vector<Place> places_;
};

}  // namespace orvik::book
