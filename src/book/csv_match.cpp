#include "book/csv_match.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace orvik::book {
namespace {

// No program has more columns that tell the place of another one.
constexpr std::size_t kMostPlaces = 256;

// In which language most of the words stand, and how many.
struct Votes {
    std::size_t Words = 0;
    std::size_t Common = 0;
    std::size_t Own = 0;  // words that are no English
};

}  // namespace

CsvHeaderWords::CsvHeaderWords(const CsvTop& top) : keys_(top.Columns) {
    for (std::size_t i = 0; i < top.Columns && i < top.Header.size(); ++i) {
        keys_[i] = KeyOf(top.Header[i]);
    }
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        if (!keys_[i].Text.empty()) {
            columns_of_[keys_[i].Text].push_back(i);
        }
    }
    FindProgram();
    FindPlaces();
    FindTongue();
}

void CsvHeaderWords::FindProgram() {
    constexpr std::size_t kFewest = 3;
    const CsvWords& words = CsvWords::All();
    struct Count {
        std::size_t Headers = 0;
        std::size_t InPlace = 0;
        std::size_t Last = ~std::size_t{0};
    };
    std::vector<Count> counts(words.Tables().size());
    std::size_t filled = 0;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        filled += keys_[i].Text.empty() ? 0U : 1U;
        for (const CsvWords::Hit hit : words.Find(keys_[i].Text)) {
            Count& count = counts[hit.Table];
            count.Headers += count.Last == i ? 0U : 1U;
            count.Last = i;
            count.InPlace += words.At(hit).Position == i + 1 ? 1U : 0U;
        }
    }
    Count best;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const CsvTable& table = words.Tables()[i];
        const Count& one = counts[i];
        const bool enough = one.Headers >= kFewest && 2 * one.Headers > filled;
        if (!table.IsGeneric() && enough &&
            std::tie(one.Headers, one.InPlace) > std::tie(best.Headers, best.InPlace)) {
            best = one;
            program_ = &table;
        }
    }
}

// Words of one meaning tell where the others stand.
void CsvHeaderWords::FindPlaces() {
    for (std::size_t i = 0; program_ != nullptr && i < keys_.size(); ++i) {
        const auto words = WordsIn(*program_, i);
        if (words.size() == 1 && places_.size() < kMostPlaces) {
            places_.push_back({i, words[0]->Position, words[0]->Name});
        }
    }
}

std::vector<const CsvWord*> CsvHeaderWords::WordsIn(const CsvTable& table,
                                                    std::size_t column) const {
    const CsvWords& all = CsvWords::All();
    std::vector<const CsvWord*> words;
    for (const CsvWords::Hit hit : all.Find(keys_[column].Text)) {
        const CsvWord& word = all.At(hit);
        const bool known = std::any_of(words.begin(), words.end(), [&word](const CsvWord* one) {
            return one->Name == word.Name;
        });
        if (&all.Tables()[hit.Table] == &table && !known) {
            words.push_back(&word);
        }
    }
    return words;
}

void CsvHeaderWords::FindTongue() {
    const CsvWords& all = CsvWords::All();
    std::map<std::string_view, Votes> votes;
    for (const CsvHeaderKey& key : keys_) {
        std::map<std::string_view, bool> tongues;
        for (const CsvWords::Hit hit : all.Find(key.Text)) {
            const CsvTable& table = all.Tables()[hit.Table];
            tongues[table.Tongue()] = tongues[table.Tongue()] || table.IsGeneric();
        }
        for (const auto& [tongue, common] : tongues) {
            ++votes[tongue].Words;
            votes[tongue].Common += common ? 1U : 0U;
            votes[tongue].Own += tongues.contains("en") ? 0U : 1U;
        }
    }
    Votes most;
    for (const auto& [tongue, one] : votes) {
        // What is the same in many languages is taken for English.
        const auto rank = std::tuple(one.Words, one.Common, tongue == "en");
        if (rank > std::tuple(most.Words, most.Common, tongue_ == "en")) {
            tongue_ = tongue;
            most = one;
        }
    }
    const std::size_t words = tongue_ == "en" ? most.Words : most.Own;
    const bool most_alone = std::all_of(votes.begin(), votes.end(), [&](const auto& row) {
        return row.first == tongue_ || row.second.Own < words;
    });
    sure_ = program_ != nullptr || (words > 1 && most_alone);
}

bool CsvHeaderWords::IsElsewhere(std::string_view field, std::size_t column) const {
    return std::any_of(places_.begin(), places_.end(), [&](const Place& place) {
        return place.Field == field && place.Column != column;
    });
}

const CsvWord* CsvHeaderWords::InTable(const CsvTable& table, std::size_t column) const {
    std::vector<const CsvWord*> words = WordsIn(table, column);
    if (words.size() < 2) {
        return words.empty() ? nullptr : OrWhole(*words[0], table, column);
    }
    const auto named = [&words](std::string_view field) {
        const auto found = std::find_if(
            words.begin(), words.end(), [field](const CsvWord* one) { return one->Name == field; });
        return found == words.end() ? nullptr : *found;
    };
    const auto by_position = [](const CsvWord* one, const CsvWord* other) {
        return one->Position < other->Position;
    };
    std::stable_sort(words.begin(), words.end(), by_position);
    // As often as it has meanings that have a place: one behind the other.
    const auto first = std::find_if(
        words.begin(), words.end(), [](const CsvWord* one) { return one->Position > 0; });
    const auto& columns = columns_of_.at(keys_[column].Text);
    if (columns.size() > 1 && columns.size() == static_cast<std::size_t>(words.end() - first)) {
        const auto at = std::lower_bound(columns.begin(), columns.end(), column);
        return *(first + (at - columns.begin()));
    }
    // A word for one name and for the whole: the one where the other one has a column.
    const CsvWord* const whole = named("fn");
    const CsvWord* const given = named("given");
    const CsvWord* const family = named("family");
    if (whole != nullptr && columns.size() == 1 && (given != nullptr || family != nullptr)) {
        const bool parted = IsElsewhere(given != nullptr ? "family" : "given", column);
        return !parted ? whole : given != nullptr ? given : family;
    }
    return ByOrder(words, column);
}

// Some languages have one word for the given name and for all of it: without a family name beside
// it it is all.
const CsvWord* CsvHeaderWords::OrWhole(const CsvWord& word,
                                       const CsvTable& table,
                                       std::size_t column) const {
    const bool given = word.Name == "given";
    if ((!given && word.Name != "family") || IsElsewhere(given ? "family" : "given", column)) {
        return &word;
    }
    const auto others = ByTongue(table.Language, column);
    const auto whole = std::find_if(
        others.begin(), others.end(), [](const CsvWord* one) { return one->Name == "fn"; });
    return whole == others.end() ? &word : *whole;
}

// The meaning whose place is right of what stands left of the column, and left of the rest.
const CsvWord* CsvHeaderWords::ByOrder(const std::vector<const CsvWord*>& words,
                                       std::size_t column) const {
    const CsvWord* best = nullptr;
    std::tuple<std::size_t, bool, bool> most;
    for (const CsvWord* const word : words) {
        std::size_t right = 0;
        for (const Place& place : places_) {
            const bool behind = place.Column > column;
            right += place.Position > 0 && (place.Position > word->Position) == behind ? 1U : 0U;
        }
        const bool placed = word->Position > 0;
        const std::tuple rank(placed ? right : 0, word->Position == column + 1, placed);
        if (best == nullptr || rank > most) {
            best = word;
            most = rank;
        }
    }
    return best;
}

std::vector<const CsvWord*> CsvHeaderWords::ByTongue(std::string_view language,
                                                     std::size_t column) const {
    const CsvWords& all = CsvWords::All();
    const std::string_view tongue = language.substr(0, language.find('-'));
    struct Ranked {
        int Rank;
        const CsvWord* Word;
    };
    std::vector<Ranked> found;
    std::map<std::string_view, std::size_t> fields;
    for (const CsvWords::Hit hit : all.Find(keys_[column].Text)) {
        const CsvTable& table = all.Tables()[hit.Table];
        const bool own = table.Tongue() == tongue;
        const bool english = table.Tongue() == "en";
        const int rank = own ? 0 : english ? 2 : 4;
        found.push_back({rank + (table.IsGeneric() ? 0 : 1), &all.At(hit)});
        ++fields[all.At(hit).Name];
    }
    // A word of other languages says nothing where they have it for several things, or where the
    // file is in another one.
    if (fields.size() > 1 || sure_) {
        std::erase_if(found, [](const Ranked& one) { return one.Rank >= 4; });
    }
    std::stable_sort(found.begin(), found.end(), [&](const Ranked& one, const Ranked& other) {
        const std::size_t often = fields[one.Word->Name];
        const std::size_t other_often = fields[other.Word->Name];
        return std::tie(one.Rank, other_often) < std::tie(other.Rank, often);
    });
    std::vector<const CsvWord*> words;
    words.reserve(found.size());
    for (const Ranked& one : found) {
        words.push_back(one.Word);
    }
    return words;
}

}  // namespace orvik::book
