// The header words of CSV files: what programs write, by language. The table itself is
// data/csv_headers.txt.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "book/csv_fields.h"

namespace orvik::book {

// A header as it is compared: without blanks around it, mark and quotes, in one form of Unicode and
// without case; the number of a numbered column is n.
//   "E-Mail-Adresse " -> "e-mail-adresse";  "Phone 12 - Value" -> "phone n - value", 12
struct CsvHeaderKey {
    std::string Text;
    std::uint32_t Number = 0;  // 0 for a column without one
};
[[nodiscard]] CsvHeaderKey KeyOf(std::string_view header);

// How far a word can be trusted.
enum class CsvTrust : char {
    Seen = 'A',    // in files of the program, or its own words
    Agreed = '2',  // two lists have it
    Common = 'C',  // of no program
};

struct CsvWord {
    CsvTrust Trust = CsvTrust::Common;
    std::uint32_t Position = 0;  // from 1; 0 where it may stand anywhere
    std::string_view Name;       // of the field, "street.home"; also of one that vCard has not
    const CsvField* Field = nullptr;
    std::string_view Text;
};

// The words of a program in a language, or those of no program.
struct CsvTable {
    std::string_view Program;   // "generic" for none
    std::string_view Language;  // "de", "pt-BR"
    std::vector<CsvWord> Words;

    [[nodiscard]] bool IsGeneric() const { return Program == "generic"; }
    // "pt" of "pt-BR".
    [[nodiscard]] std::string_view Tongue() const { return Language.substr(0, Language.find('-')); }
};

class CsvWords {
 public:
    // A word by the numbers of its table and in it.
    struct Hit {
        std::uint32_t Table = 0;
        std::uint32_t Word = 0;
    };

    // Made when they are asked for first.
    [[nodiscard]] static const CsvWords& All();

    [[nodiscard]] std::span<const CsvTable> Tables() const { return tables_; }
    // The words that a normalised header is.
    [[nodiscard]] std::span<const Hit> Find(const std::string& key) const;
    [[nodiscard]] const CsvWord& At(Hit hit) const { return tables_[hit.Table].Words[hit.Word]; }

 private:
    CsvWords();
    void AddBlock(std::string_view block);

    std::vector<CsvTable> tables_;
    std::unordered_map<std::string, std::vector<Hit>> hits_;
};

// "German" of "de", the code itself of a language that is not in the table.
[[nodiscard]] std::string_view LanguageName(std::string_view code);

// The blocks of data/csv_headers.txt.
[[nodiscard]] std::span<const std::string_view> CsvHeaderBlocks();

}  // namespace orvik::book
