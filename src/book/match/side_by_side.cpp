#include "book/match/side_by_side.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "book/match/folding.h"
#include "book/match/merge_records.h"
#include "book/match/record_keys.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

bool IsCarried(const Book& book, const Property& one) {
    return StartsAsName(book.Names.Text(one.Name), kCarriedFromMerge);
}

// What a merged record has, as it stands there.
class Outcome {
 public:
    Outcome(const Book& merged, const FieldRules& rules) {
        for (const Property& one : merged.Contacts.front().Properties) {
            auto& values = IsCarried(merged, one) ? carried_ : kept_;
            const FieldRule& rule = rules.Of(one.Name);
            values.insert(KeyOf(rule, one.Value));
            if (rule.How == Comparing::List) {
                std::string_view rest = one.Value;
                for (TakenPart part{{}, true}; part.More;) {
                    part = TakePart(rest, ',');
                    values.insert(KeyOf(rule, part.Text));
                }
            }
        }
    }

    // Of a value as it stood in its record.
    [[nodiscard]] Fate Of(const FieldRule& rule, std::string_view value) const {
        const std::string key = KeyOf(rule, value);
        return kept_.contains(key)      ? Fate::Stays
               : carried_.contains(key) ? Fate::Carried
                                        : Fate::Goes;
    }

 private:
    static std::string KeyOf(const FieldRule& rule, std::string_view value) {
        return std::to_string(rule.Field).append(" ").append(WithoutBlanksAround(value));
    }

    std::unordered_set<std::string> kept_;
    std::unordered_set<std::string> carried_;
};

class SideFinder {
 public:
    explicit SideFinder(const Book& book) : book_(book), keys_(book) {}

    // The rules of the outcome know all names that the records have.
    std::vector<SideRow> Find(const Outcome& outcome, const FieldRules& merged_rules) && {
        for (std::uint32_t i = 0; i < book_.Contacts.size(); ++i) {
            AddRecord(i);
        }
        std::stable_sort(rows_.begin(), rows_.end(), [](const Row& one, const Row& other) {
            return one.Rank < other.Rank;
        });
        std::vector<SideRow> found;
        found.reserve(rows_.size());
        for (Row& row : rows_) {
            Judge(row.Shown);
            for (SideValue& value : row.Shown.Values) {
                const FieldRule& rule = merged_rules.Of(value.Field.Name);
                value.Becomes = row.IsMember ? Fate::Unknown : outcome.Of(rule, value.Field.Value);
            }
            found.push_back(std::move(row.Shown));
        }
        return found;
    }

 private:
    struct Row {
        SideRow Shown;
        std::string Key;  // what its values are compared as
        bool IsMember = false;
        std::pair<bool, std::uint32_t> Rank;
    };

    void AddRecord(std::uint32_t record) {
        const Contact& contact = book_.Contacts[record];
        const auto is_member = keys_.MemberFields(contact);
        there_.clear();
        for (std::uint32_t i = 0; i < contact.Properties.size(); ++i) {
            const Property& one = contact.Properties[i];
            const FieldRule& rule = keys_.Rules().Of(one.Name);
            if (WithoutBlanksAround(one.Value).empty()) {
                continue;
            }
            if (is_member(one)) {
                Add(record, one, "member " + std::string(one.Value), {}, true);
            } else if (rule.How == Comparing::List) {
                AddList(record, one);
            } else {
                std::string key = KeyOf(contact, i);
                // A person has one: whatever it is, it stands beside that of the others.
                const bool aligned =
                    (rule.IsSingle || rule.How == Comparing::Ignored) && !IsCarried(book_, one);
                std::string place = std::to_string(rule.Field);
                place.append(aligned ? " one" : " " + key);
                Add(record, one, std::move(place), std::move(key), false);
            }
        }
    }

    void AddList(std::uint32_t record, const Property& list) {
        const FieldRule& rule = keys_.Rules().Of(list.Name);
        std::string_view rest = list.Value;
        std::string key;
        for (TakenPart part{{}, true}; part.More;) {
            part = TakePart(rest, ',');
            FoldText(Unescaped(part.Text), key);
            if (!key.empty()) {
                Property one = list;
                one.Value = part.Text;
                Add(record, one, std::to_string(rule.Field).append(" ").append(key), key, false);
            }
        }
    }

    std::string KeyOf(const Contact& contact, std::uint32_t property) {
        const Property& one = contact.Properties[property];
        const FieldRule& rule = keys_.Rules().Of(one.Name);
        list_.Clear();
        keys_.AddOf(contact, property, list_);
        if (!list_.Keys().empty()) {
            return std::string(list_.TextOf(list_.Keys().front()));
        }
        return rule.How == Comparing::Name ? FoldName(Unescaped(one.Value)).Key
                                           : std::string(WithoutBlanksAround(one.Value));
    }

    // What a record has several times stands in several rows.
    void Add(std::uint32_t record,
             const Property& one,
             std::string place,
             std::string key,
             bool is_member) {
        const std::size_t times = there_[place]++;
        place.append(" ").append(std::to_string(times));
        const auto [known, is_new] = places_.try_emplace(std::move(place), rows_.size());
        if (is_new) {
            const auto rank = RankOf(one);
            rows_.push_back({{Alike::Equal, rank.first, {}}, std::move(key), is_member, rank});
        } else if (rows_[known->second].Key != key) {
            rows_[known->second].Shown.How = Alike::Different;
        }
        rows_[known->second].Shown.Values.push_back({record, one});
    }

    // Known names have their order; what names the record comes last.
    [[nodiscard]] std::pair<bool, std::uint32_t> RankOf(const Property& one) {
        const FieldRule& rule = keys_.Rules().Of(one.Name);
        return {rule.How == Comparing::Ignored,
                first_of_.try_emplace(rule.Field, one.Name).first->second};
    }

    void Judge(SideRow& row) const {
        if (row.How == Alike::Different) {
            return;
        }
        if (row.Values.size() < book_.Contacts.size()) {
            row.How = Alike::Partial;
            return;
        }
        const std::string_view first = WithoutBlanksAround(row.Values.front().Field.Value);
        const bool equal =
            std::all_of(row.Values.begin(), row.Values.end(), [first](const SideValue& value) {
                return WithoutBlanksAround(value.Field.Value) == first;
            });
        row.How = equal ? Alike::Equal : Alike::Spelled;
    }

    const Book& book_;
    RecordKeys keys_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, std::size_t> places_;
    // Of the record that is added.
    std::unordered_map<std::string, std::size_t> there_;
    std::unordered_map<std::uint32_t, NameId> first_of_;
    KeyList list_;
};

}  // namespace

SideBySide Compare(const Book& book, std::span<const std::uint32_t> records) {
    SideBySide made;
    made.From = book.Excerpt(records);
    const std::shared_ptr<Book> merged = book.Excerpt(records);
    std::vector<std::uint32_t> all(records.size());
    std::iota(all.begin(), all.end(), 0U);
    static_cast<void>(MergeRecords(*merged, {all}));
    const FieldRules rules(*merged);
    made.Rows = SideFinder(*made.From).Find(Outcome(*merged, rules), rules);
    return made;
}

}  // namespace orvik::book
