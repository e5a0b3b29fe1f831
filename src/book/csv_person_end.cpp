// What becomes cells of a row when all of a person is known: names, firm, groups, dates, and what
// came from columns of CSV.

#include <algorithm>

#include "book/carried_name.h"
#include "book/csv_cells.h"
#include "book/csv_contact.h"
#include "book/csv_person.h"
#include "book/csv_values.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Google's own group, of all whom the user has taken up.
constexpr std::string_view kEverybody = "* myContacts";
constexpr std::string_view kOldEverybody = "* My Contacts";

// Columns whose cells the reader may keep under their header.
bool MayComeBack(CsvMeaning meaning) {
    return meaning == CsvMeaning::Carried || meaning == CsvMeaning::Year ||
           meaning == CsvMeaning::Month || meaning == CsvMeaning::Day ||
           meaning == CsvMeaning::AddressName || meaning == CsvMeaning::Sort ||
           meaning == CsvMeaning::Kind;
}

// "04" -> "4"
std::string_view Plain(std::string_view number) {
    return number.substr(std::min(number.find_first_not_of('0'), number.size()));
}

}  // namespace

CsvTarget CarriedTarget(const Book& book, const Property& one, CsvProgram program) {
    CsvTarget target{CarriedField(book, one, kCarriedFromCsv), {}, 0};
    const CsvHeaderKey key = KeyOf(target.Header);
    const CsvWords& words = CsvWords::All();
    const CsvTable& table = CsvTableOf(program);
    // What was kept under its header was no field, so words for fields are not meant.
    std::string_view name;
    bool sure = true;
    for (const CsvWords::Hit hit : words.Find(key.Text)) {
        const CsvWord& word = words.At(hit);
        if (&words.Tables()[hit.Table] == &table) {
            name = word.Name;
            sure = true;
            break;
        }
        if (MayComeBack(word.Field->Meaning)) {
            sure = sure && (name.empty() || name == word.Name);
            name = word.Name;
        }
    }
    if (sure) {
        target.Name = name;
        target.Number = key.Number;
    }
    return target;
}

const CsvTarget& CsvPersonWriter::TargetOf(const Property& one) {
    const auto [place, is_new] = targets_.try_emplace({one.Name, one.Details});
    if (is_new) {
        place->second = CarriedTarget(book_, one, program_);
    }
    return place->second;
}

void CsvPersonWriter::TakeDate(const Property& one) {
    const std::string date = IsText(one) ? std::string() : PlainDate(one.Value);
    const bool no_year = date.starts_with("--");
    const std::string_view month =
        date.empty() ? "" : std::string_view(date).substr(date.size() - 5, 2);
    const std::string_view day = date.empty() ? "" : std::string_view(date).substr(date.size() - 2);
    const std::size_t column = simple_[one.Name];
    bool written = false;
    if (date.empty()) {
        written = false;
    } else if (column != CsvLayout::kNone && (google_ || !no_year)) {
        std::string american(Plain(month));
        american.append("/").append(Plain(day)).append("/").append(date, 0, 4);
        written = Put(column, google_ ? date : american);
    } else if (one.Name == field::kBday && birth_columns_[0] != CsvLayout::kNone &&
               row_.IsFree(birth_columns_[2])) {
        Put(birth_columns_[0], no_year ? "" : std::string_view(date).substr(0, 4));
        Put(birth_columns_[1], Plain(month));
        written = Put(birth_columns_[2], Plain(day));
    }
    written ? Kept(one) : Carry(one, LabelOfValue(book_, one), one.Value);
}

void CsvPersonWriter::WriteOrganisation() {
    if (firm_ == nullptr) {
        return;
    }
    bool whole = true;
    std::string_view rest = firm_->Value;
    TakenPart part{{}, true};
    for (std::size_t i = 0; part.More; ++i) {
        part = TakePart(rest, ';');
        const std::string text = Unescaped(part.Text);
        const std::string_view shown = WithoutBlanksAround(text);
        if (!shown.empty() && (i >= firm_columns_.size() || !Put(firm_columns_[i], shown))) {
            AddNote(i == 0 ? "Organisation" : "Department", shown);
            whole = false;
        }
    }
    whole ? Kept(*firm_) : Tell(*firm_, What::Carried, Reason::NotInTarget, note_name_);
}

// Whether what is shown is what the parts or the firm make.
bool CsvPersonWriter::FollowsFromRest(std::string_view shown) {
    std::array<std::string_view, 5> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i] =
            name_columns_[i] == CsvLayout::kNone ? std::string_view{} : row_.Cell(name_columns_[i]);
    }
    const auto joined = [](std::initializer_list<std::string_view> texts,
                           std::string_view between) {
        std::string all;
        for (const std::string_view text : texts) {
            all.append(all.empty() || text.empty() ? "" : between).append(text);
        }
        return all;
    };
    const auto& [family, given, middle, prefix, suffix] = parts;
    return shown == joined({given, family}, " ") || shown == joined({family, given}, " ") ||
           shown == joined({family, given}, ", ") || shown == joined({family, given}, "") ||
           shown == joined({given, middle, family}, " ") ||
           shown == joined({prefix, given, middle, family, suffix}, " ") ||
           shown == joined({prefix, given, family, suffix}, " ");
}

void CsvPersonWriter::WriteName() {
    bool named = false;
    if (name_ != nullptr) {
        bool whole = true;
        std::string_view rest = name_->Value;
        TakenPart part{{}, true};
        for (std::size_t i = 0; part.More; ++i) {
            part = TakePart(rest, ';');
            std::string text;
            std::string_view values = part.Text;
            for (TakenPart value{{}, true}; value.More;) {
                value = TakePart(values, ',');
                const std::string plain = Unescaped(value.Text);
                const std::string_view shown = WithoutBlanksAround(plain);
                text.append(text.empty() || shown.empty() ? "" : " ").append(shown);
            }
            if (text.empty()) {
                continue;
            }
            constexpr std::array<std::string_view, 5> kLabels = {
                "Family name", "Given name", "Middle name", "Name prefix", "Name suffix"};
            if (i >= kLabels.size() || !Put(name_columns_[i], text)) {
                AddNote(i < kLabels.size() ? kLabels[i] : "More of the name", text);
                whole = false;
            } else {
                named = true;
            }
        }
        whole ? Kept(*name_) : Tell(*name_, What::Carried, Reason::NotInTarget, note_name_);
    }
    if (shown_ == nullptr) {
        return;
    }
    const std::string_view shown = WithoutBlanksAround(shown_->Value);
    if (full_name_ != CsvLayout::kNone) {
        return Put(full_name_, shown) ? Kept(*shown_) : Carry(*shown_, "Name", shown);
    }
    if (named && FollowsFromRest(shown)) {
        return Kept(*shown_);
    }
    const bool is_firm = row_.Cell(firm_columns_[0]) == shown;
    if (!named && (is_firm || Put(name_columns_[1], shown))) {
        return Kept(*shown_);
    }
    Put(filed_column_, shown) ? Tell(*shown_,
                                     What::Carried,
                                     Reason::NotInTarget,
                                     book_.Names.Intern(layout_.Columns()[filed_column_].Header))
                              : Carry(*shown_, "Name", shown);
}

void CsvPersonWriter::WriteGroups(std::span<const std::string_view> lists) {
    seen_groups_.clear();
    std::string cell;
    bool everybody = false;
    const std::string_view between = google_ ? kBetweenValues : std::string_view(";");
    const auto add = [&](std::string_view group) {
        group = group == kOldEverybody ? kEverybody : group;
        const bool known = !seen_groups_.emplace(group).second;
        const bool none = group == kEverybody && !google_;
        everybody = everybody || group == kEverybody;
        if (groups_column_ == CsvLayout::kNone || group.find(between) != std::string_view::npos) {
            if (!known && !none) {
                AddNote("Group", group);
            }
            return known || none;
        }
        if (!known && !none) {
            cell.append(cell.empty() ? "" : between).append(group);
        }
        return true;
    };
    for (const Property* const one : groups_) {
        bool whole = true;
        std::string_view rest = one->Value;
        for (TakenPart part{{}, true}; part.More;) {
            part = TakePart(rest, ',');
            const std::string text = Unescaped(part.Text);
            const std::string_view group = WithoutBlanksAround(text);
            whole = (group.empty() || add(group)) && whole;
        }
        whole ? Kept(*one) : Tell(*one, What::Carried, Reason::NotInTarget, note_name_);
    }
    for (const std::string_view list : lists) {
        add(WithoutBlanksAround(list));
    }
    if (google_ && !everybody) {
        cell = std::string(kEverybody).append(cell.empty() ? "" : between).append(cell);
    }
    if (groups_column_ != CsvLayout::kNone) {
        row_.AppendLines(cell, groups_column_);
    }
}

void CsvPersonWriter::WriteRelations() {
    std::uint32_t next = 0;
    for (const Property* const one : carried_) {
        const CsvTarget& target = TargetOf(*one);
        if (target.Name.starts_with("relation") && target.Number <= numbered_relations_.size()) {
            next = std::max(next, target.Number);
        }
    }
    for (const Property* const one : relations_) {
        const std::string_view type = ParamOf(book_, *one, field::kType);
        const std::string_view text = WithoutBlanksAround(one->Value);
        const bool plain = IsText(*one);
        const std::string_view name = SameName(type, "child") ? "children" : type;
        const std::size_t column = SameName(type, "spouse") || SameName(type, "child")
                                       ? layout_.Find(name)
                                       : CsvLayout::kNone;
        if (google_ && MayBeNumbered(book_, *one) && next < numbered_relations_.size() &&
            Put(numbered_relations_[next].Value, text)) {
            row_.Cell(numbered_relations_[next].Label) = Capitalised(type);
            ++next;
            Kept(*one);
        } else if (plain && Put(column, text)) {
            Kept(*one);
        } else {
            std::string label("Related");
            label.append(type.empty() ? "" : " (").append(type).append(type.empty() ? "" : ")");
            Carry(*one, label, text);
        }
    }
}

// A column goes back to where it was, if nothing else is there.
void CsvPersonWriter::WriteCarried() {
    for (const Property* const one : carried_) {
        const CsvTarget& target = TargetOf(*one);
        const std::size_t column =
            target.Name.empty() ? CsvLayout::kNone : layout_.Find(target.Name, target.Number);
        if (column == CsvLayout::kNone) {
            Carry(*one, target.Header, one->Value);
            continue;
        }
        const CsvMeaning meaning = layout_.Columns()[column].Field->Meaning;
        const bool kind = meaning == CsvMeaning::Kind;
        // The kind of nothing stands before its empty cell.
        const bool fits = kind ? row_.IsFree(column + 1) : MayComeBack(meaning);
        if (IsNothing(target.Name, one->Value)) {
            Kept(*one);
        } else if (fits && row_.IsFree(column)) {
            row_.Cell(column) = one->Value;
            Kept(*one);
        } else {
            Carry(*one, target.Header, one->Value);
        }
    }
}

// Parts that were no date one by one may be one together.
void CsvPersonWriter::WriteBirthParts() {
    if (birth_columns_[0] == CsvLayout::kNone) {
        return;
    }
    std::string& year = row_.Cell(birth_columns_[0]);
    std::string& month = row_.Cell(birth_columns_[1]);
    std::string& day = row_.Cell(birth_columns_[2]);
    const std::string date = DateOfParts(
        WithoutBlanksAround(year), WithoutBlanksAround(month), WithoutBlanksAround(day));
    if (!date.empty() && !month.empty()) {
        year = date.starts_with("--") ? "" : date.substr(0, 4);
        month = Plain(std::string_view(date).substr(date.size() - 5, 2));
        day = Plain(std::string_view(date).substr(date.size() - 2));
    }
}

// As Outlook writes beside each address: "SMTP", "Ada Abbott (ada@example.org)".
void CsvPersonWriter::WriteShownAddresses() {
    if (shown_addresses_.empty()) {
        return;
    }
    const std::string& given = row_.Cell(name_columns_[1]);
    const std::string& family = row_.Cell(name_columns_[0]);
    const std::string name = given + (given.empty() || family.empty() ? "" : " ") + family;
    for (const auto& [address, type, shown] : shown_addresses_) {
        const std::string& text = row_.Cell(address);
        if (text.empty()) {
            continue;
        }
        std::string& sort = row_.Cell(type);
        std::string& cell = row_.Cell(shown);
        sort = sort.empty() ? "SMTP" : sort;
        if (cell.empty() && !name.empty()) {
            cell.append(name).append(" (").append(text).append(")");
        }
    }
}

}  // namespace orvik::book
