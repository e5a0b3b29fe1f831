#include "book/csv_columns.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_set>
#include <utility>

#include "book/csv_match.h"
#include "book/csv_words.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Several columns may hold values of these.
bool MayRepeat(CsvMeaning meaning) {
    return meaning == CsvMeaning::Simple || meaning == CsvMeaning::Address ||
           meaning == CsvMeaning::Values || meaning == CsvMeaning::Carried;
}

using FieldKey = std::pair<std::string_view, std::uint32_t>;

class Matcher {
 public:
    Matcher(const CsvTop& top, std::span<const CsvMapping> asked) : top_(top), words_(top) {
        columns_.All.resize(top.Columns);
        for (std::size_t i = 0; i < top.Columns; ++i) {
            columns_.All[i].Header = i < top.Header.size() ? top.Header[i] : std::string_view{};
            columns_.All[i].Field = &CsvFieldOf({});
            columns_.All[i].Number = words_.KeyAt(i).Number;
        }
        TakeAsked(asked);
    }

    CsvColumns Match() {
        if (const CsvTable* const table = words_.Program()) {
            columns_.Program = table->Program;
            columns_.Language = table->Language;
            columns_.ManyInCell = table->Program.starts_with("Google");
            ByTable(*table);
        } else {
            columns_.Language = words_.Tongue();
        }
        ByWords();
        ByCells();
        FinishDates();
        FinishKinds();
        return std::move(columns_);
    }

 private:
    void TakeAsked(std::span<const CsvMapping> asked) {
        for (const CsvMapping& one : asked) {
            const std::string key = KeyOf(one.Header).Text;
            for (std::size_t i = 0; i < top_.Columns; ++i) {
                const bool bare = columns_.All[i].Header.empty();
                if (columns_.All[i].Ground != CsvGround::Asked &&
                    (bare ? ColumnName(i) == one.Header
                          : columns_.All[i].Header == one.Header || words_.KeyAt(i).Text == key)) {
                    columns_.All[i].Ground = CsvGround::Asked;
                    columns_.All[i].Field = one.Field;
                    columns_.All[i].Name = one.Field->Name;
                    taken_.emplace(one.Field->Name, columns_.All[i].Number);
                }
            }
        }
    }

    [[nodiscard]] bool IsOpen(std::size_t i) const {
        return columns_.All[i].Ground == CsvGround::None;
    }

    // A field that another column has already stays with it.
    bool Take(std::size_t i, const CsvWord& word, CsvGround ground) {
        CsvColumn& column = columns_.All[i];
        if (!MayRepeat(word.Field->Meaning) && taken_.contains({word.Name, column.Number})) {
            return false;
        }
        taken_.emplace(word.Name, column.Number);
        column.Name = word.Name;
        column.Field = word.Field;
        column.Ground = ground;
        return true;
    }

    void ByTable(const CsvTable& table) {
        for (std::size_t i = 0; i < top_.Columns; ++i) {
            const CsvWord* const word = IsOpen(i) ? words_.InTable(table, i) : nullptr;
            if (word != nullptr) {
                Take(i, *word, CsvGround::Header);
            }
        }
    }

    // Words of one meaning first: the others depend on what is there.
    void ByWords() {
        for (const bool last : {false, true}) {
            for (std::size_t i = 0; i < top_.Columns; ++i) {
                if (!IsOpen(i)) {
                    continue;
                }
                auto words = words_.ByTongue(columns_.Language, i);
                const bool one_meaning =
                    std::all_of(words.begin(), words.end(), [&words](const CsvWord* word) {
                        return word->Name == words[0]->Name;
                    });
                if (one_meaning || last) {
                    TakeOneOf(i, words);
                }
            }
        }
    }

    void TakeOneOf(std::size_t i, std::vector<const CsvWord*>& words) {
        // A word that says home or private is none of a phone where no cell has a digit.
        const bool digits = IsEmpty(i) || HoldAny(i, HasDigit);
        std::erase_if(words, [digits](const CsvWord* one) {
            return !digits && one->Field->Property == field::kTel &&
                   one->Field->Meaning == CsvMeaning::Simple;
        });
        // The word of an address may be that of a street: the cells tell.
        const auto addresses = std::count_if(words.begin(), words.end(), IsAddressWord);
        const bool both = addresses > 0 && addresses < std::ssize(words);
        const bool mail = HoldAny(i, HasAddressesAlone);
        const std::string_view name = NameAmong(words);
        std::stable_partition(
            words.begin(), words.end(), [name](const CsvWord* one) { return one->Name == name; });
        for (const CsvWord* const word : words) {
            if ((!both || IsAddressWord(word) == mail) && Take(i, *word, CsvGround::Words)) {
                return;
            }
        }
    }

    // Which of several names a word is: one of them beside the other, else the whole one. What is a
    // nickname in one country is a family name in another.
    [[nodiscard]] std::string_view NameAmong(const std::vector<const CsvWord*>& words) const {
        const auto has = [&words](std::string_view name) {
            return std::any_of(words.begin(), words.end(), [name](const CsvWord* one) {
                return one->Name == name;
            });
        };
        if (has("fn") && has("given")) {
            return HasField("family") ? "given" : "fn";
        }
        if (has("fn") && has("family")) {
            return HasField("given") ? "family" : "fn";
        }
        if (has("family") && has("nickname")) {
            return HasField("family") ? "nickname" : "family";
        }
        return {};
    }

    static bool IsAddressWord(const CsvWord* word) {
        return word->Field->Meaning == CsvMeaning::Address;
    }

    // Address, given and family name, nickname, comment, and then groups, as many as there are: the
    // rows of some programs end where the groups of their person do.
    void ByLayout() {
        constexpr std::array kFirst = {"email1", "given", "family", "nickname", "note"};
        const bool fits = Hold(0, HasAddressesAlone) && top_.Columns > kFirst.size() &&
                          Hold(1, IsNameCell) && Hold(2, IsNameCell);
        for (std::size_t i = 0; fits && i < top_.Columns; ++i) {
            if (IsOpen(i) && (i < kFirst.size() || !IsOtherThing(i))) {
                TakeCells(i, i < kFirst.size() ? kFirst.at(i) : "label");
            }
        }
    }

    [[nodiscard]] bool IsOtherThing(std::size_t i) const {
        return Hold(i, HasAddressesAlone) || Hold(i, IsWebCell) || Hold(i, IsPhoneCell);
    }

    void ByCells() {
        if (top_.Ragged) {
            ByLayout();
        }
        for (std::size_t i = 0; i < top_.Columns; ++i) {
            if (!IsOpen(i)) {
                continue;
            }
            if (Hold(i, HasAddressesAlone)) {
                TakeCells(i, "email1");
            } else if (Hold(i, IsWebCell)) {
                TakeCells(i, "url");
            } else if (Hold(i, top_.Header.empty() ? IsPhoneCell : IsDialledCell)) {
                TakeCells(i, "phone");
                columns_.All[i].Unsure = !top_.Header.empty();
            } else if (top_.Header.empty() && Hold(i, IsNameCell)) {
                names_.push_back(i);
            }
        }
        // Two columns of single words at the start are names as people write them.
        const bool two = names_.size() > 1 && names_[1] == names_[0] + 1 &&
                         Hold(names_[0], IsSingleWord) && Hold(names_[1], IsSingleWord);
        if (two) {
            TakeCells(names_[0], "given");
            TakeCells(names_[1], "family");
        } else if (!names_.empty()) {
            TakeCells(names_[0], "fn");
        }
        for (const std::size_t i : names_) {
            if (top_.Ragged && IsOpen(i) && HasField("email1")) {
                TakeCells(i, "label");
            }
        }
        TakeDates();
        TakeCodes();
    }

    // The only column that holds dates may hold birthdays.
    void TakeDates() {
        std::vector<std::size_t> dates;
        for (std::size_t i = 0; i < top_.Columns; ++i) {
            if (IsOpen(i) && Hold(i, IsDateCell)) {
                dates.push_back(i);
            }
        }
        const bool known = HasField("birthday") || HasField("birthday.year") ||
                           HasField("birthday.month") || HasField("birthday.day");
        if (dates.size() == 1 && !known) {
            TakeCells(dates[0], "birthday");
            columns_.All[dates[0]].Unsure = true;
        }
    }

    // Numbers beside a town or a street, or of five digits where no header says anything.
    void TakeCodes() {
        for (std::size_t i = 0; i < top_.Columns; ++i) {
            const std::string_view place = PlaceBeside(i);
            const bool bare = columns_.Language.empty() && Hold(i, IsLongCodeCell);
            if (IsOpen(i) && Hold(i, IsCodeCell) && (bare || !place.empty())) {
                const std::string name = "zip." + std::string(place.empty() ? "home" : place);
                if (!HasField(name)) {
                    TakeCells(i, name);
                    columns_.All[i].Unsure = true;
                }
            }
        }
    }

    // "work" where the column on either side holds a part of that postal address; empty for none.
    [[nodiscard]] std::string_view PlaceBeside(std::size_t i) const {
        for (const std::size_t other : {i + 1, i - 1}) {
            if (other < top_.Columns && columns_.All[other].Field->Meaning == CsvMeaning::Post &&
                !columns_.All[other].Field->Types.empty()) {
                return columns_.All[other].Field->Types;
            }
        }
        return {};
    }

    static bool IsSingleWord(std::string_view cell) {
        return WithoutBlanksAround(cell).find(' ') == std::string_view::npos;
    }

    void TakeCells(std::size_t i, std::string_view name) {
        const CsvField& field = CsvFieldOf(name);
        Take(i, {CsvTrust::Common, 0, field.Name, &field, {}}, CsvGround::Cells);
    }

    // Whether most of what a column holds is of a kind: single cells may be broken.
    template <class Is>
    [[nodiscard]] bool Hold(std::size_t i, const Is& is) const {
        if (IsEmpty(i)) {
            return false;
        }
        const auto& cells = top_.Cells[i];
        const auto count = std::count_if(cells.begin(), cells.end(), is);
        return 2 * static_cast<std::size_t>(count) > cells.size();
    }

    template <class Is>
    [[nodiscard]] bool HoldAny(std::size_t i, const Is& is) const {
        return !IsEmpty(i) && std::any_of(top_.Cells[i].begin(), top_.Cells[i].end(), is);
    }

    [[nodiscard]] bool IsEmpty(std::size_t i) const {
        return i >= top_.Cells.size() || top_.Cells[i].empty();
    }

    [[nodiscard]] bool HasField(std::string_view name) const {
        return std::any_of(columns_.All.begin(), columns_.All.end(), [name](const auto& one) {
            return one.Name == name;
        });
    }

    // The same word is the day of birth where month and year stand beside it, else the whole date.
    void FinishDates() {
        const bool parts = HasField("birthday.year") || HasField("birthday.month");
        for (std::size_t i = 0; i < top_.Columns; ++i) {
            CsvColumn& column = columns_.All[i];
            const bool by_word = column.Ground != CsvGround::Asked;
            if (by_word && column.Name == "birthday.day" && !parts) {
                column.Field = &CsvFieldOf("birthday");
            } else if (by_word && column.Name == "birthday" && parts && Hold(i, IsDayCell)) {
                column.Field = &CsvFieldOf("birthday.day");
            }
            if (column.Field->Meaning == CsvMeaning::Date && i < top_.Cells.size()) {
                const bool american = columns_.Language.empty() || columns_.Language == "en";
                column.Order =
                    OrderOf(top_.Cells[i], american ? DateOrder::MonthFirst : DateOrder::DayFirst);
            }
        }
    }

    // "Phone 1 - Type" belongs to "Phone 1 - Value", and that of a postal address to all of its
    // columns.
    void FinishKinds() {
        std::map<std::pair<NameId, std::uint32_t>, std::size_t> kinds;
        for (std::size_t i = 0; i < top_.Columns; ++i) {
            const CsvColumn& column = columns_.All[i];
            if (column.Field->Meaning == CsvMeaning::Kind) {
                kinds.try_emplace({column.Field->Property, column.Number}, i);
            }
        }
        for (CsvColumn& column : columns_.All) {
            const auto kind = kinds.find({column.Field->Property, column.Number});
            if (column.Number > 0 && column.Field->Meaning != CsvMeaning::Kind &&
                kind != kinds.end()) {
                column.KindColumn = kind->second;
            }
        }
    }

    struct FieldHash {
        std::size_t operator()(const FieldKey& key) const {
            return std::hash<std::string_view>()(key.first) * 31 + key.second;
        }
    };

    const CsvTop& top_;
    CsvHeaderWords words_;
    CsvColumns columns_;
    std::unordered_set<FieldKey, FieldHash> taken_;
    std::vector<std::size_t> names_;
};

}  // namespace

CsvMapping ParseMapping(std::string_view text) {
    const std::size_t equals = std::min(text.rfind('='), text.size());
    CsvMapping mapping{std::string(text.substr(0, equals)), nullptr};
    if (equals < text.size()) {
        mapping.Field = CsvFieldShown(WithoutBlanksAround(text.substr(equals + 1)));
    }
    return mapping;
}

CsvColumns MatchColumns(const CsvTop& top, std::span<const CsvMapping> asked) {
    return Matcher(top, asked).Match();
}

}  // namespace orvik::book
