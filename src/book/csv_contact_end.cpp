// What several columns make up becomes a property at the end of a row.

#include <algorithm>
#include <array>
#include <string>

#include "book/csv_contact.h"
#include "book/csv_values.h"
#include "book/value_form.h"

namespace orvik::book {

void CsvContacts::Finish() {
    FinishAddressNames();
    FinishName();
    for (const std::size_t group : firms_used_) {
        Firm& firm = firms_[group];
        std::string value;
        AppendEscaped(firm.Parts[0], value);
        value += firm.Parts[1].empty() ? "" : ";";
        AppendEscaped(firm.Parts[1], value);
        Push(field::kOrg, book_.Keep(value));
        firm = {};
    }
    firms_used_.clear();
    FinishPosts();
    FinishBirthday();
    items_ = 0;
}

void CsvContacts::FinishName() {
    const bool named = std::any_of(
        name_.begin(), name_.end(), [](std::string_view part) { return !part.empty(); });
    if (named) {
        std::string value;
        for (std::size_t i = 0; i < name_.size(); ++i) {
            value += i == 0 ? "" : ";";
            AppendEscaped(name_[i], value);
        }
        Push(field::kN, book_.Keep(value));
    }
    name_ = {};
    shown_ = {};
}

void CsvContacts::FinishPosts() {
    for (const std::size_t group : posts_used_) {
        for (Post& post : posts_[group]) {
            if (post.Column == CsvColumn::kNone) {
                continue;
            }
            const bool parted = std::any_of(post.Parts.begin(),
                                            post.Parts.end(),
                                            [](const auto& part) { return !part.empty(); });
            constexpr std::size_t kStreet = 2;
            if (!parted) {
                AppendEscaped(post.Whole, post.Parts[kStreet]);
            }
            std::string value;
            for (std::size_t i = 0; i < post.Parts.size(); ++i) {
                value += (i == 0 ? "" : ";") + post.Parts[i];
            }
            PushLabelled(field::kAdr, book_.Keep(value), post.Column, post.Value);
            if (parted && !post.Whole.empty()) {
                PushLabelled(field::kLabel, post.Whole, post.Column, post.Value);
            }
        }
        posts_[group].clear();
    }
    posts_used_.clear();
}

void CsvContacts::FinishBirthday() {
    const auto& [year, month, day] = birth_;
    if (!year.empty() || !month.empty() || !day.empty()) {
        const std::string date = DateOfParts(year, month, day);
        for (std::size_t i = 0; i < birth_.size() && date.empty(); ++i) {
            if (!birth_[i].empty()) {
                Carry(birth_columns_[i], birth_[i]);
            }
        }
        if (!date.empty()) {
            Push(field::kBday, book_.Keep(date));
        }
    }
    birth_ = {};
}

// "Ada Abbott (ada@example.org)" says nothing that is not there already.
void CsvContacts::FinishAddressNames() {
    const std::string_view given = name_[1];
    const std::string_view family = name_[0];
    std::string whole(given);
    whole.append(given.empty() || family.empty() ? "" : " ").append(family);
    for (std::size_t i = 0; i < address_names_.size(); ++i) {
        const std::string_view text = address_names_[i];
        const std::string_view name =
            text.ends_with(')') ? WithoutBlanksAround(text.substr(0, text.rfind('('))) : text;
        const bool known =
            std::any_of(properties_.begin(), properties_.end(), [text](const Property& one) {
                return one.Name == field::kEmail && one.Value == text;
            });
        if (!text.empty() && !known && name != whole && name != shown_) {
            Carry(address_columns_[i], text);
        }
    }
    address_names_ = {};
}

// A kind of nothing is kept all the same.
void CsvContacts::FinishKinds(const CsvRow& row) {
    for (std::size_t i = 0; i < columns_.All.size() && i < row.Cells.size(); ++i) {
        if (columns_.All[i].Field->Meaning == CsvMeaning::Kind &&
            kinds_[i].Used < kinds_[i].Values.size() &&
            !WithoutBlanksAround(kinds_[i].Cell).empty()) {
            Carry(i, kinds_[i].Cell);
        }
    }
}

}  // namespace orvik::book
