#include "book/csv_kinds.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "app/text.h"
#include "book/csv_fields.h"
#include "book/csv_values.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

struct NamedBit {
    std::string_view Type;
    KindBits Bit;
};

// In the order in which the table of fields names several.
constexpr std::array kBits = {
    NamedBit{"home", kind::kHome},
    NamedBit{"work", kind::kWork},
    NamedBit{"other", kind::kOther},
    NamedBit{"cell", kind::kCell},
    NamedBit{"main", kind::kMain},
    NamedBit{"pager", 1U << 5U},
    NamedBit{"car", 1U << 6U},
    NamedBit{"isdn", 1U << 7U},
    NamedBit{"x-company", 1U << 8U},
    NamedBit{"x-assistant", 1U << 9U},
    NamedBit{"x-callback", 1U << 10U},
    NamedBit{"x-radio", 1U << 11U},
    NamedBit{"x-telex", 1U << 12U},
    NamedBit{"x-tty", 1U << 13U},
    NamedBit{"fax", kind::kFax},
    NamedBit{"mobile", kind::kCell},
    NamedBit{"iphone", kind::kCell},
    NamedBit{"textphone", 1U << 13U},
};

KindBits BitOf(std::string_view type) {
    const auto* const found = std::find_if(
        kBits.begin(), kBits.end(), [type](const auto& one) { return SameName(one.Type, type); });
    return found == kBits.end() ? 0 : found->Bit;
}

// The types of the bits, parted by blanks.
std::string TypesOf(KindBits bits) {
    std::string types;
    for (const NamedBit& one : kBits) {
        if ((bits & one.Bit) != 0) {
            types.append(types.empty() ? "" : " ").append(one.Type);
            bits &= ~one.Bit;
        }
    }
    return types;
}

// The word for exactly these bits.
std::string ExactWord(KindBits bits) {
    const std::string types = TypesOf(bits);
    if (const std::string_view word = WordOfTypes(types); !word.empty()) {
        return std::string(word);
    }
    for (std::size_t i = 0; i < CsvFieldCount(); ++i) {
        const CsvField& field = CsvFieldAt(i);
        if (field.Property == field::kTel && field.Types == types && !types.empty()) {
            return Capitalised(ShownName(field));
        }
    }
    return {};
}

// What Apple wraps its own labels in: "_$!<Home>!$_".
std::string_view Unwrapped(std::string_view label) {
    constexpr std::string_view kBefore = "_$!<";
    constexpr std::string_view kBehind = ">!$_";
    label = WithoutBlanksAround(label);
    const bool wrapped = label.size() > kBefore.size() + kBehind.size() &&
                         label.starts_with(kBefore) && label.ends_with(kBehind);
    return wrapped ? label.substr(kBefore.size(), label.size() - kBefore.size() - kBehind.size())
                   : label;
}

}  // namespace

std::string Capitalised(std::string_view text) {
    std::string capital(text);
    if (!capital.empty() && capital.front() >= 'a' && capital.front() <= 'z') {
        capital.front() = static_cast<char>(capital.front() - 'a' + 'A');
    }
    return capital;
}

KindBits BitsOfTypes(std::string_view types) {
    KindBits bits = 0;
    while (!types.empty()) {
        const std::size_t blank = std::min(types.find(' '), types.size());
        bits |= BitOf(types.substr(0, blank));
        types.remove_prefix(std::min(blank + 1, types.size()));
    }
    return bits;
}

KindWord WordOfKind(KindBits bits) {
    if (bits == 0) {
        return {};
    }
    if (std::string word = ExactWord(bits); !word.empty()) {
        return {std::move(word), 0};
    }
    // A fax with its place; else the thing before the place.
    const KindBits place = bits & (kind::kHome | kind::kWork | kind::kOther);
    const KindBits first_place = place & (~place + 1);
    const KindBits thing = bits & ~place & ~KindBits{kind::kFax};
    const KindBits first = (bits & kind::kFax) != 0 ? kind::kFax | first_place
                           : thing != 0             ? thing & (~thing + 1)
                                                    : first_place;
    return {ExactWord(first), bits & ~first};
}

void GroupLabels::Fill(const Book& book, const Contact& contact) {
    labels_.clear();
    for (const Property& one : contact.Properties) {
        if (one.Name == field::kAbLabel) {
            const std::string_view group = book.DetailsOf(one).Group;
            labels_.try_emplace(ToLower(group), Unwrapped(one.Value));
        }
    }
}

std::string_view GroupLabels::Of(std::string_view group) const {
    if (group.empty() || labels_.empty()) {
        return {};
    }
    const auto found = labels_.find(ToLower(group));
    return found == labels_.end() ? std::string_view{} : found->second;
}

KindOfProperty KindOf(const Book& book, const Property& property, const GroupLabels& labels) {
    KindOfProperty kind;
    const Details& details = book.DetailsOf(property);
    for (const Param& param : details.Params) {
        if (param.Name == field::kType) {
            kind.Bits |= BitOf(param.Value);
            kind.Rank = SameName(param.Value, "pref") ? 1 : kind.Rank;
        } else if (param.Name == field::kPref) {
            const char* const end = param.Value.data() + param.Value.size();
            std::from_chars(param.Value.data(), end, kind.Rank);
        }
    }
    kind.Label = labels.Of(details.Group);
    if (const CsvKind known = CsvKindOf(kind.Label); !kind.Label.empty() && known.Label.empty()) {
        kind.Bits |= BitsOfTypes(known.Types);
        kind.Label = {};
    }
    return kind;
}

}  // namespace orvik::book
