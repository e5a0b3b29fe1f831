#include "book/match/person_facts.h"

#include <algorithm>
#include <string_view>

#include "book/match/names.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// Whoever has more names is compared by the first ones.
constexpr std::size_t kMostNames = 8;
constexpr std::size_t kMostSingles = 16;

bool IsDate(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789-") == std::string_view::npos;
}

// "--0412" and "1980" go with "19800412".
bool MayBeOneValue(std::string_view one, std::string_view other) {
    if (one == other) {
        return true;
    }
    if (!IsDate(one) || !IsDate(other)) {
        return false;
    }
    const auto without_year = [](std::string_view text) {
        const bool has_none = text.starts_with("--");
        return has_none ? text.substr(2) : text;
    };
    const std::string_view shorter = one.size() < other.size() ? one : other;
    const std::string_view longer = one.size() < other.size() ? other : one;
    constexpr std::size_t kYear = 4;
    return shorter.starts_with("--") ? longer.ends_with(without_year(shorter))
                                     : shorter.size() >= kYear && longer.starts_with(shorter);
}

}  // namespace

PersonFacts PersonFactsOf(const KeyedBook& book, std::size_t record) {
    const Contact& contact = book.From().Contacts[record];
    KeyList keys;
    book.Keys().Fill(contact, keys);
    PersonFacts facts;
    for (const KeyList::Key& key : keys.Keys()) {
        if (key.Kind == KeyKind::Address) {
            facts.Addresses.push_back(keys.HashOf(key));
        } else if (key.Kind == KeyKind::Phone) {
            facts.Phones.push_back(keys.HashOf(key));
        } else if (key.Kind == KeyKind::Name && facts.Names.size() < kMostNames) {
            const Property& from = contact.Properties[key.Property];
            const bool parts = from.Name == field::kN;
            const std::string text = parts && facts.Shown.empty()
                                         ? NameOf(book.From(), contact).Shown
                                         : std::string(from.Value);
            facts.Shown = facts.Shown.empty() ? text : facts.Shown;
            facts.Names.push_back(FoldName(parts ? Unescaped(from.Value) : text));
        } else if (book.Keys().Rules().Of(contact.Properties[key.Property].Name).TellsApart &&
                   facts.Singles.size() < kMostSingles) {
            facts.Singles.emplace_back(key.Field, keys.TextOf(key));
        }
    }
    std::sort(facts.Addresses.begin(), facts.Addresses.end());
    std::sort(facts.Phones.begin(), facts.Phones.end());
    return facts;
}

bool HaveCompatibleNames(const PersonFacts& one, const PersonFacts& other) {
    if (one.Names.empty() || other.Names.empty()) {
        return true;
    }
    return std::any_of(one.Names.begin(), one.Names.end(), [&](const FoldedName& left) {
        return std::any_of(other.Names.begin(), other.Names.end(), [&](const FoldedName& right) {
            return AreCompatible(left, right);
        });
    });
}

std::uint32_t ConflictOf(const PersonFacts& one, const PersonFacts& other) {
    for (const auto& [field, value] : one.Singles) {
        bool has = false;
        bool agrees = false;
        for (const auto& [other_field, other_value] : other.Singles) {
            has = has || field == other_field;
            agrees = agrees || (field == other_field && MayBeOneValue(value, other_value));
        }
        if (has && !agrees) {
            return field;
        }
    }
    return kNoConflict;
}

std::uint64_t SharedOf(const std::vector<std::uint64_t>& one,
                       const std::vector<std::uint64_t>& other) {
    const auto& few = one.size() <= other.size() ? one : other;
    const auto& many = one.size() <= other.size() ? other : one;
    const auto found = std::find_if(few.begin(), few.end(), [&many](std::uint64_t number) {
        return std::binary_search(many.begin(), many.end(), number);
    });
    return found == few.end() ? 0 : *found;
}

}  // namespace orvik::book
