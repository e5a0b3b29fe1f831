#include "book/match/shared.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <unordered_map>
#include <utility>

#include "app/printable.h"
#include "book/match/person_facts.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

// So many people are named in a line, and so many stand beside a bare name.
constexpr std::size_t kMostNamed = 8;

using Records = std::vector<std::uint32_t>;

// Two that agree, the earlier one first.
struct Pair {
    std::uint32_t One = 0;
    std::uint32_t Other = 0;

    [[nodiscard]] bool operator<(const Pair& other) const {
        return One != other.One ? One < other.One : Other < other.Other;
    }
    [[nodiscard]] bool operator==(const Pair&) const = default;
};

std::string Quoted(const std::string& name) {
    return name.empty() ? "no name" : "\"" + Printable(Shortened(name)) + "\"";
}

class SharedFinder {
 public:
    SharedFinder(const KeyedBook& book, const Containment& contained, bool merges)
        : book_(book), contained_(contained), merges_(merges), unit_(book.Count()) {
        std::iota(unit_.begin(), unit_.end(), 0U);
    }

    Shared Find() && {
        EachBucket(KeyKind::Address,
                   MatchStep::Pairs,
                   [this](const Bucket& bucket, const Records& records) {
                       FindAgreeing(bucket, records);
                   });
        std::sort(pairs_.begin(), pairs_.end());
        pairs_.erase(std::unique(pairs_.begin(), pairs_.end()), pairs_.end());
        AddAgreeing();
        EachBucket(KeyKind::Address,
                   MatchStep::Addresses,
                   [this](const Bucket& bucket, const Records& records) {
                       if (records.size() <= kMostCompared) {
                           AddSharers(bucket, UnitsOf(records));
                       }
                   });
        EachBucket(KeyKind::Name,
                   MatchStep::Names,
                   [this](const Bucket& /*bucket*/, const Records& records) {
                       AddNamesakes(UnitsOf(records));
                   });
        return std::move(found_);
    }

 private:
    // Buckets of those who are nobody else yet. Who shares many is looked at once.
    template <class Take>
    void EachBucket(KeyKind kind, MatchStep step, const Take& take) {
        Records records;
        std::set<Records> seen;
        const std::span<const Bucket> buckets = book_.BucketsOf(kind);
        for (std::size_t i = 0; i < buckets.size(); ++i) {
            book_.Tell(step, i, buckets.size());
            const Bucket& bucket = buckets[i];
            records.clear();
            for (const std::uint32_t record : bucket.Records) {
                if (contained_.Into[record] == record && !contained_.IsAsked[record]) {
                    records.push_back(record);
                }
            }
            const bool many = records.size() > kMostCompared;
            if (records.size() > 1 && (many || seen.insert(records).second)) {
                take(bucket, records);
            }
        }
    }

    const PersonFacts& FactsAt(std::uint32_t record) {
        const auto [place, is_new] = facts_.try_emplace(record);
        if (is_new) {
            place->second = PersonFactsOf(book_, record);
        }
        return place->second;
    }

    bool Agree(std::uint32_t one, std::uint32_t other) {
        const PersonFacts& left = FactsAt(one);
        const PersonFacts& right = FactsAt(other);
        return HaveCompatibleNames(left, right) && ConflictOf(left, right) == kNoConflict;
    }

    void FindAgreeing(const Bucket& bucket, const Records& records) {
        if (records.size() > kMostCompared) {
            FindEqualNames(bucket, records);
            return;
        }
        for (std::size_t i = 0; i < records.size(); ++i) {
            for (std::size_t j = i + 1; j < records.size(); ++j) {
                if (Agree(records[i], records[j])) {
                    pairs_.push_back({records[i], records[j]});
                }
            }
        }
    }

    // Very many share an address: only equal names are looked for.
    void FindEqualNames(const Bucket& bucket, const Records& records) {
        std::unordered_map<std::string, std::uint32_t> last;
        for (const std::uint32_t record : records) {
            const PersonFacts& facts = FactsAt(record);
            if (facts.Names.empty()) {
                continue;
            }
            const auto [place, is_new] = last.try_emplace(facts.Names.front().Key, record);
            if (!is_new && Agree(place->second, record)) {
                pairs_.push_back({place->second, record});
            }
            place->second = record;
        }
        found_.Notes.push_back("address: " + std::to_string(records.size()) + " records share " +
                               TextOf(bucket) + "; only equal names among them were looked for");
    }

    [[nodiscard]] bool IsPair(std::uint32_t one, std::uint32_t other) const {
        return std::binary_search(
            pairs_.begin(), pairs_.end(), Pair{std::min(one, other), std::max(one, other)});
    }

    // Whoever is joined by pairs is one person if all of them agree.
    void AddAgreeing() {
        Records root(book_.Count());
        std::iota(root.begin(), root.end(), 0U);
        const auto find = [&root](std::uint32_t record) {
            while (root[record] != record) {
                root[record] = root[root[record]];
                record = root[record];
            }
            return record;
        };
        for (const Pair& pair : pairs_) {
            const std::uint32_t one = find(pair.One);
            const std::uint32_t other = find(pair.Other);
            root[std::max(one, other)] = std::min(one, other);
        }
        Records paired;
        for (const Pair& pair : pairs_) {
            paired.push_back(pair.One);
            paired.push_back(pair.Other);
        }
        std::sort(paired.begin(), paired.end());
        paired.erase(std::unique(paired.begin(), paired.end()), paired.end());
        std::map<std::uint32_t, Records> joined;
        for (const std::uint32_t record : paired) {
            joined[find(record)].push_back(record);
        }
        std::set<std::uint32_t> all_agree;
        for (const auto& [first, all] : joined) {
            book_.Tell(MatchStep::Pairs, 1, 1);
            if (all.size() <= kMostCompared && AllAgree(all)) {
                all_agree.insert(first);
                for (const std::uint32_t record : all) {
                    unit_[record] = first;
                }
                AddAgreeingLine(merges_ ? Action::Merge : Action::Ask, all);
            }
        }
        for (const Pair& pair : pairs_) {
            if (!all_agree.contains(find(pair.One))) {
                AddAgreeingLine(Action::Ask, {pair.One, pair.Other});
            }
        }
    }

    bool AllAgree(const Records& records) {
        for (std::size_t i = 0; i < records.size(); ++i) {
            for (std::size_t j = i + 1; j < records.size(); ++j) {
                if (!IsPair(records[i], records[j]) && !Agree(records[i], records[j])) {
                    return false;
                }
            }
        }
        return true;
    }

    void AddAgreeingLine(Action action, const Records& records) {
        std::uint64_t shared = 0;
        for (std::size_t i = 1; i < records.size() && shared == 0; ++i) {
            shared = SharedOf(FactsAt(records.front()).Addresses, FactsAt(records[i]).Addresses);
        }
        const std::string reason =
            shared == 0 ? "" : "share " + TextOf(book_.BucketAt(KeyKind::Address, shared)) + ", ";
        found_.Lines.push_back(
            {action, Tier::Agree, records, reason + "names " + NamesOf(records)});
    }

    // The first record of each person in a bucket.
    Records UnitsOf(const Records& records) {
        Records units;
        std::set<std::uint32_t> there;
        for (const std::uint32_t record : records) {
            if (there.insert(unit_[record]).second) {
                units.push_back(record);
            }
        }
        return units;
    }

    // Those of whom something is to be said: some other one is not known to be the same.
    template <class Known>
    static Records Unknown(const Records& records, const Known& is_known) {
        Records unknown;
        for (const std::uint32_t one : records) {
            if (std::any_of(records.begin(), records.end(), [&](std::uint32_t other) {
                    return one != other && !is_known(one, other);
                })) {
                unknown.push_back(one);
            }
        }
        return unknown;
    }

    void AddSharers(const Bucket& bucket, const Records& units) {
        const Records records =
            Unknown(units, [this](auto one, auto other) { return IsPair(one, other); });
        if (records.size() < 2 || !told_.insert(records).second) {
            return;
        }
        std::string reason = "share " + TextOf(bucket) + ": " + NamesOf(records);
        const std::uint32_t conflict =
            ConflictOf(FactsAt(records.front()), FactsAt(records.back()));
        if (conflict != kNoConflict) {
            reason += ", different " + book_.Keys().Rules().NameOf(conflict);
        }
        found_.Lines.push_back({Action::Keep, Tier::Address, records, std::move(reason)});
    }

    void AddNamesakes(const Records& units) {
        if (units.size() > kMostCompared) {
            found_.Notes.push_back("name: " + std::to_string(units.size()) +
                                   " different records are called " +
                                   Quoted(FactsAt(units.front()).Shown) + "; they are not named");
            return;
        }
        Records bare;
        Records reached;
        for (const std::uint32_t record : units) {
            (FactsAt(record).IsBare() ? bare : reached).push_back(record);
        }
        if (reached.empty() && bare.size() > 1) {
            AddNameLine(Action::Ask, bare);
        }
        for (const std::uint32_t one : bare) {
            for (std::size_t i = 0; i < std::min(reached.size(), kMostNamed); ++i) {
                AddNameLine(Action::Ask, {std::min(one, reached[i]), std::max(one, reached[i])});
            }
        }
        // What shares an address was told with that.
        const Records others = Unknown(reached, [this](auto one, auto other) {
            return SharedOf(FactsAt(one).Addresses, FactsAt(other).Addresses) != 0;
        });
        if (others.size() > 1) {
            AddNameLine(SharePhone(others) ? Action::Ask : Action::Keep, others);
        }
    }

    bool SharePhone(const Records& records) {
        return Unknown(records, [this](auto one, auto other) {
                   return SharedOf(FactsAt(one).Phones, FactsAt(other).Phones) == 0;
               }).size() > 1;
    }

    void AddNameLine(Action action, const Records& records) {
        if (!told_.insert(records).second) {
            return;
        }
        const bool bare = std::any_of(records.begin(), records.end(), [this](auto record) {
            return FactsAt(record).IsBare();
        });
        std::string reason = Quoted(FactsAt(records.front()).Shown);
        reason += bare                    ? ", one without an address or a phone"
                  : action == Action::Ask ? ", share a phone"
                                          : "";
        found_.Lines.push_back({action, Tier::Name, records, std::move(reason)});
    }

    // The names as they are written, as many as a person reads.
    std::string NamesOf(const Records& records) {
        std::string names;
        for (std::size_t i = 0; i < std::min(records.size(), kMostNamed); ++i) {
            names += (names.empty() ? "" : " / ") + Quoted(FactsAt(records[i]).Shown);
        }
        const std::size_t more = records.size() - std::min(records.size(), kMostNamed);
        return names + (more > 0 ? " and " + std::to_string(more) + " more" : "");
    }

    [[nodiscard]] std::string TextOf(const Bucket& bucket) const {
        return Printable(Shortened(book_.AddressOf(bucket)));
    }

    const KeyedBook& book_;
    const Containment& contained_;
    bool merges_;
    Records unit_;
    std::vector<Pair> pairs_;
    std::unordered_map<std::uint32_t, PersonFacts> facts_;
    std::set<Records> told_;
    Shared found_;
};

}  // namespace

Shared FindShared(const KeyedBook& book, const Containment& contained, bool merges_agreeing) {
    return SharedFinder(book, contained, merges_agreeing).Find();
}

}  // namespace orvik::book
