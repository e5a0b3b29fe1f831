#include "book/csv_layout.h"

#include <algorithm>

namespace orvik::book {
namespace {

// What stands for the number in a header.
constexpr std::string_view kNumber = " N - ";

bool IsNumbered(const CsvWord& word) {
    return word.Text.find(kNumber) != std::string_view::npos;
}

std::uint32_t CountOf(const CsvWord& word, const CsvNumbered& numbered) {
    return word.Name.starts_with("emailN")     ? numbered.Emails
           : word.Name.starts_with("phoneN")   ? numbered.Phones
           : word.Name.starts_with("adrN")     ? numbered.Posts
           : word.Name.starts_with("relation") ? numbered.Relations
                                               : numbered.Urls;
}

// What stands before the number.
std::string_view SortOf(const CsvWord& word) {
    return word.Text.substr(0, word.Text.find(kNumber));
}

std::string KeyOfPlace(std::string_view name, std::uint32_t number) {
    return std::string(name).append(" ").append(std::to_string(number));
}

}  // namespace

const CsvTable& CsvTableOf(CsvProgram program) {
    const std::string_view name = program == CsvProgram::Thunderbird ? "Thunderbird"
                                  : program == CsvProgram::Google    ? "Google"
                                                                     : "Outlook";
    const auto tables = CsvWords::All().Tables();
    return *std::find_if(tables.begin(), tables.end(), [name](const CsvTable& one) {
        return one.Program == name && one.Language == "en";
    });
}

CsvLayout::CsvLayout(CsvProgram program, const CsvNumbered& numbered) {
    const std::vector<CsvWord>& words = CsvTableOf(program).Words;
    // Of several words for a column the program writes the one that was seen.
    std::vector<const CsvWord*> placed;
    for (const CsvWord& word : words) {
        if (word.Trust == CsvTrust::Seen && word.Position > 0) {
            placed.push_back(&word);
        }
    }
    std::stable_sort(placed.begin(), placed.end(), [](const CsvWord* one, const CsvWord* other) {
        return one->Position < other->Position;
    });
    for (const CsvWord* const word : placed) {
        Add(*word, 0);
    }
    // All columns of the first one, then all of the second one.
    for (auto first = words.begin(); first != words.end();) {
        const auto last = std::find_if(first, words.end(), [&first](const CsvWord& word) {
            return !IsNumbered(word) || SortOf(word) != SortOf(*first);
        });
        for (std::uint32_t number = 1; first != last && number <= CountOf(*first, numbered);
             ++number) {
            std::for_each(first, last, [&](const CsvWord& word) { Add(word, number); });
        }
        first = first == last ? first + 1 : last;
    }
}

void CsvLayout::Add(const CsvWord& word, std::uint32_t number) {
    std::string header(word.Text);
    if (number > 0) {
        const std::size_t at = header.find(kNumber);
        header.replace(at + 1, 1, std::to_string(number));
    }
    places_.emplace(KeyOfPlace(word.Name, number), columns_.size());
    columns_.push_back({std::move(header), word.Name, word.Field, number});
}

std::size_t CsvLayout::Find(std::string_view name, std::uint32_t number) const {
    const auto found = places_.find(KeyOfPlace(name, number));
    return found == places_.end() ? kNone : found->second;
}

}  // namespace orvik::book
