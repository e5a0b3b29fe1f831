// What Orvik itself carried through LDIF becomes what it was.

#include <algorithm>
#include <string>
#include <vector>

#include "book/carried_line.h"
#include "book/ldif_contact.h"
#include "book/ldif_sets.h"
#include "book/value_form.h"
#include "book/vcard_fields.h"

namespace orvik::book {
namespace {

// Several attributes make up these, at the end of a record.
bool IsMerged(NameId name) {
    return name == field::kN || name == field::kOrg || name == field::kAdr ||
           name == field::kBday || name == field::kFn;
}

// Whether programs were given this much of a property.
bool IsPartOf(const Book& book, const Property& given, const Property& whole) {
    if (given.Name != whole.Name ||
        (given.Name == field::kAdr && IsHomeAddress(book, given) != IsHomeAddress(book, whole))) {
        return false;
    }
    switch (given.Name) {
        case field::kBday:
            return DateIn(Dialect::VCard40, given.Value) == DateIn(Dialect::VCard40, whole.Value);
        case field::kUrl:
            return given.Value == WithPlainColons(whole.Value);
        case field::kPhoto: {
            // 4.0 has the bytes in an address.
            const auto uri = SplitDataUri(whole.Value);
            return given.Value == (uri ? uri->Base64 : whole.Value);
        }
        case field::kN:
        case field::kOrg:
        case field::kAdr:
            break;
        default:
            return given.Value == whole.Value;
    }
    constexpr std::size_t kParts = 7;
    for (std::size_t i = 0; i < kParts; ++i) {
        const std::string part = Unescaped(PartAt(given.Value, i));
        if (!part.empty() && part != Unescaped(PartAt(whole.Value, i))) {
            return false;
        }
    }
    return true;
}

// Lists of LDIF have other names for their members.
bool AreMembers(const Property& given, const Property& whole) {
    return given.Name == field::kMember &&
           (whole.Name == field::kMember || whole.Name == field::kServerMember);
}

// How many of the last properties are nicknames of a list: programs were given each by itself.
std::size_t NicknamesBefore(const std::vector<Property>& all, std::string_view list) {
    std::vector<std::string> names;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(list, ',');
        names.push_back(Unescaped(part.Text));
    }
    std::sort(names.begin(), names.end());
    const auto other = std::find_if(all.rbegin(), all.rend(), [&](const Property& one) {
        return one.Name != field::kNickname || one.Details != 0 ||
               !std::binary_search(names.begin(), names.end(), Unescaped(one.Value));
    });
    return std::min(static_cast<std::size_t>(other - all.rbegin()), names.size());
}

}  // namespace

bool LdifContacts::TakeCarried(const LdifParts& parts, std::string_view text) {
    auto property = FromCarriedLine(book_, text);
    if (!property) {
        return false;
    }
    property->File = file_;
    property->Line = row_;
    const bool besides = parts.Options == kBesides;
    if (IsMerged(property->Name) && !besides) {
        carried_.push_back(*property);
        return true;
    }
    // The attribute that programs know stands right before.
    std::vector<Property>& all = properties_;
    const bool behind = !besides && !all.empty() && !last_was_carried_;
    if (behind && property->Name == field::kNickname) {
        all.resize(all.size() - NicknamesBefore(all, property->Value));
        all.push_back(*property);
    } else if (behind &&
               (IsPartOf(book_, all.back(), *property) || AreMembers(all.back(), *property))) {
        all.back() = *property;
    } else {
        all.push_back(*property);
    }
    last_was_carried_ = true;
    return true;
}

void LdifContacts::FinishCarried(std::size_t merged) {
    std::vector<Property>& all = properties_;
    const std::size_t end = all.size();
    std::vector<bool> taken(end);
    for (const Property& one : carried_) {
        // The name stands where it stood, the others behind what was read line by line.
        std::size_t at = one.Name == field::kFn ? 0 : merged;
        const std::size_t last = std::min(end, at + kMostCompared);
        while (at < last && (taken[at] || !IsPartOf(book_, all[at], one))) {
            ++at;
        }
        if (at < last) {
            taken[at] = true;
            all[at] = one;
        } else {
            all.push_back(one);
        }
    }
}

}  // namespace orvik::book
