#include "book/match/record_keys.h"

#include <algorithm>
#include <functional>

#include "book/typed_views.h"
#include "book/value_form.h"
#include "book/vcard_fields.h"

namespace orvik::book {
namespace {

// The parts of a value are folded as one text where no escape hides a separator.
std::string_view Plain(std::string_view value, std::string& kept) {
    if (value.find('\\') == std::string_view::npos) {
        return value;
    }
    kept = Unescaped(value);
    return kept;
}

bool HasAllWords(const FoldedName& more, const FoldedName& less) {
    return std::includes(
        more.Words.begin(), more.Words.end(), less.Words.begin(), less.Words.end());
}

// "1980-04-12T00:00:00Z" and "19800412" are one day.
std::string DayOf(std::string_view value) {
    std::string date = DateIn(Dialect::VCard40, WithoutBlanksAround(value));
    const std::size_t time = date.find('T');
    const bool digits = date.find_first_not_of("0123456789-") == time;
    return time != std::string::npos && time > 0 && digits ? date.substr(0, time) : date;
}

std::string BytesOfValue(std::string_view value) {
    const auto uri = SplitDataUri(value);
    std::string bytes(uri ? uri->Base64 : value);
    bytes.erase(
        std::remove_if(bytes.begin(),
                       bytes.end(),
                       [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }),
        bytes.end());
    return bytes;
}

}  // namespace

void KeyList::Add(KeyKind kind, std::uint32_t field, std::size_t property, std::string_view text) {
    if (!text.empty()) {
        keys_.push_back(
            {text_.size(), text.size(), field, static_cast<std::uint32_t>(property), kind});
        text_ += text;
    }
}

std::uint64_t KeyList::HashOf(const Key& key) const {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15U;
    const std::uint64_t text = std::hash<std::string_view>()(TextOf(key));
    const std::uint64_t mixed =
        (text ^ (std::uint64_t{key.Field} + 1) * kOdd) * 0xBF58476D1CE4E5B9U;
    return mixed ^ (mixed >> 31U);
}

std::vector<std::string> KeyList::Sorted() const {
    std::vector<std::string> sorted;
    sorted.reserve(keys_.size());
    for (const Key& key : keys_) {
        sorted.push_back(std::to_string(key.Field).append(" ").append(TextOf(key)));
    }
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    return sorted;
}

std::function<bool(const Property&)> RecordKeys::MemberFields(const Contact& contact) const {
    if (contact.Kind != ContactKind::List) {
        return [](const Property& /*one*/) { return false; };
    }
    const bool evolution = !FirstOf(book_, contact, field::kEvolutionList).empty();
    return [evolution](const Property& one) {
        return one.Name == field::kMember || one.Name == field::kServerMember ||
               (evolution && one.Name == field::kEmail);
    };
}

void RecordKeys::Fill(const Contact& contact, KeyList& keys) const {
    keys.Clear();
    const auto is_member = MemberFields(contact);
    for (std::size_t i = 0; i < contact.Properties.size(); ++i) {
        const Property& one = contact.Properties[i];
        if (rules_.Of(one.Name).How != Comparing::Name && !is_member(one)) {
            AddOf(contact, i, keys);
        }
    }
    AddNames(contact, keys);
}

void RecordKeys::AddOf(const Contact& contact, std::size_t property, KeyList& keys) const {
    const Property& one = contact.Properties[property];
    const FieldRule& rule = rules_.Of(one.Name);
    const auto add = [&](KeyKind kind) { keys.Add(kind, rule.Field, property, folded_); };
    const bool bytes = one.Details != 0 && ParamOf(book_, one, field::kEncoding) == "b";
    switch (bytes && rule.How != Comparing::Ignored ? Comparing::Bytes : rule.How) {
        case Comparing::Ignored:
        case Comparing::Name:
            return;
        case Comparing::Address:
            FoldAddress(one.Value, folded_);
            return add(KeyKind::Address);
        case Comparing::Phone:
            FoldPhone(one.Value, folded_);
            return add(KeyKind::Phone);
        case Comparing::Parts: {
            joined_.clear();
            std::string_view rest = one.Value;
            for (TakenPart part{{}, true}; part.More;) {
                part = TakePart(rest, ';');
                std::string kept;
                FoldText(Plain(part.Text, kept), folded_);
                joined_.append(folded_).append(";");
            }
            joined_.erase(joined_.find_last_not_of(';') + 1);
            return keys.Add(KeyKind::Other, rule.Field, property, joined_);
        }
        case Comparing::List: {
            std::string_view rest = one.Value;
            for (TakenPart part{{}, true}; part.More;) {
                part = TakePart(rest, ',');
                std::string kept;
                FoldText(Plain(part.Text, kept), folded_);
                add(KeyKind::Other);
            }
            return;
        }
        case Comparing::Date:
            FoldText(DayOf(one.Value), folded_);
            return add(KeyKind::Other);
        case Comparing::Bytes:
            return keys.Add(KeyKind::Other, rule.Field, property, BytesOfValue(one.Value));
        case Comparing::Text:
            FoldText(one.Value, folded_);
            return add(KeyKind::Other);
    }
}

void RecordKeys::AddNames(const Contact& contact, KeyList& keys) const {
    std::vector<FoldedName> shown;
    const std::uint32_t name_field = rules_.Of(field::kFn).Field;
    const std::uint32_t parts_field = rules_.Of(field::kN).Field;
    const std::size_t others = keys.Keys().size();
    // A record may have very many names; the first ones are compared with each other.
    constexpr std::size_t kMostShown = 8;
    std::size_t compared = 0;
    std::size_t looked = 0;
    const auto is_own_address = [&](std::string_view text) {
        FoldAddress(text, folded_);
        return std::any_of(keys.Keys().begin(),
                           keys.Keys().begin() + static_cast<std::ptrdiff_t>(others),
                           [&](const KeyList::Key& key) {
                               return key.Kind == KeyKind::Address && keys.TextOf(key) == folded_;
                           });
    };
    for (const bool parts : {false, true}) {
        for (std::size_t i = 0; i < contact.Properties.size(); ++i) {
            const Property& one = contact.Properties[i];
            const FieldRule& rule = rules_.Of(one.Name);
            if (rule.How != Comparing::Name || (rule.Field == parts_field) != parts ||
                one.Value.empty()) {
                continue;
            }
            std::string kept;
            FoldedName name = FoldName(parts ? Plain(one.Value, kept) : one.Value);
            const bool known = parts && ++looked <= kMostShown &&
                               std::any_of(shown.begin(), shown.end(), [&](const auto& fn) {
                                   return HasAllWords(fn, name);
                               });
            const bool address = one.Value.find('@') != std::string_view::npos &&
                                 ++compared <= kMostShown && is_own_address(one.Value);
            if (!known && !address) {
                keys.Add(KeyKind::Name, name_field, i, name.Key);
            }
            if (!parts && shown.size() < kMostShown && !address) {
                shown.push_back(std::move(name));
            }
        }
    }
}

}  // namespace orvik::book
