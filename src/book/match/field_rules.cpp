#include "book/match/field_rules.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "book/vcard_fields.h"

namespace orvik::book {
namespace {

constexpr std::array<std::string_view, 12> kOfTheRecord = {"UID",
                                                           "REV",
                                                           "PRODID",
                                                           "VERSION",
                                                           "PROFILE",
                                                           "KIND",
                                                           "X-ADDRESSBOOKSERVER-KIND",
                                                           "X-EVOLUTION-LIST",
                                                           "X-ORVIK-VCARD-VERSION",
                                                           "X-ORVIK-LDIF-DN",
                                                           "X-ORVIK-BREAKS",
                                                           "X-ORVIK-HEADER"};
constexpr std::array<std::string_view, 4> kTellApart = {
    "BDAY", "ANNIVERSARY", "GENDER", "DEATHDATE"};
// What formats have room for once.
constexpr std::array<std::string_view, 16> kSingle = {"FN",
                                                      "N",
                                                      "BDAY",
                                                      "ANNIVERSARY",
                                                      "GENDER",
                                                      "DEATHDATE",
                                                      "CLASS",
                                                      "SORT-STRING",
                                                      "MAILER",
                                                      "X-MOZILLA-HTML",
                                                      "X-CUSTOM1",
                                                      "X-CUSTOM2",
                                                      "X-CUSTOM3",
                                                      "X-CUSTOM4",
                                                      "X-PHONETIC-FIRST-NAME",
                                                      "X-PHONETIC-LAST-NAME"};
constexpr std::array<std::string_view, 4> kBytes = {"PHOTO", "LOGO", "SOUND", "KEY"};
constexpr std::array<std::string_view, 3> kDates = {"BDAY", "ANNIVERSARY", "DEATHDATE"};

template <class Names>
bool IsIn(const Names& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

Comparing ComparingOf(const FieldNames& names, std::string_view field) {
    const NameId known = names.Find(field);
    if (IsIn(kOfTheRecord, field)) {
        return Comparing::Ignored;
    }
    if (IsIn(kBytes, field)) {
        return Comparing::Bytes;
    }
    if (IsIn(kDates, field)) {
        return Comparing::Date;
    }
    switch (known) {
        case field::kFn:
        case field::kN:
            return Comparing::Name;
        case field::kEmail:
            return Comparing::Address;
        case field::kTel:
            return Comparing::Phone;
        default:
            break;
    }
    if (known == FieldNames::kNone) {
        return Comparing::Text;
    }
    const ValueForm form = ValueFormOf(names, known);
    return form == ValueForm::Parts  ? Comparing::Parts
           : form == ValueForm::List ? Comparing::List
                                     : Comparing::Text;
}

}  // namespace

std::string CanonicalField(std::string_view name) {
    while (StartsAsName(name, kCarriedFromMerge)) {
        name.remove_prefix(kCarriedFromMerge.size());
    }
    std::string known = UpperName(NameIn(Dialect::VCard40, name).Text);
    if (known.starts_with(kCarriedFromVCard) && known != "X-ORVIK-VCARD-VERSION") {
        known.erase(0, kCarriedFromVCard.size());
    }
    return known;
}

FieldRules::FieldRules(const Book& book) {
    std::unordered_map<std::string, std::uint32_t> numbers;
    rules_.reserve(book.Names.Count());
    for (NameId name = 0; name < book.Names.Count(); ++name) {
        std::string field = CanonicalField(book.Names.Text(name));
        // Both are what somebody is called.
        const bool single = IsIn(kSingle, field);
        const auto [place, is_new] =
            numbers.try_emplace(field, static_cast<std::uint32_t>(names_.size()));
        rules_.push_back(
            {ComparingOf(book.Names, field), place->second, single, IsIn(kTellApart, field)});
        if (is_new) {
            names_.push_back(std::move(field));
        }
    }
}

}  // namespace orvik::book
