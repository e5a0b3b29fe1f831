#include "book/match/contained.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "app/printable.h"
#include "book/typed_views.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

// So many of the records that hold one are named.
constexpr std::size_t kMostNamed = 8;

class HolderFinder {
 public:
    explicit HolderFinder(const KeyedBook& book)
        : book_(book), narrowest_(book.Count(), nullptr), kinds_(book.Count(), 0) {
        found_.Into.resize(book.Count());
        std::iota(found_.Into.begin(), found_.Into.end(), 0U);
        found_.IsAsked.resize(book.Count(), false);
        is_top_.resize(book.Count(), true);
    }

    Containment Find() && {
        for (const KeyKind kind : {KeyKind::Name, KeyKind::Address, KeyKind::Phone}) {
            FindNarrowest(kind);
        }
        // Whoever holds more comes first, so that it is known by whom it is held itself.
        std::vector<std::uint32_t> order;
        for (std::uint32_t i = 0; i < book_.Count(); ++i) {
            if (book_.IsCompared(i) && (Has(i, KeyKind::Address) || Has(i, KeyKind::Phone))) {
                order.push_back(i);
            }
        }
        std::stable_sort(
            order.begin(), order.end(), [this](std::uint32_t one, std::uint32_t other) {
                return book_.HashesOf(one).size() > book_.HashesOf(other).size();
            });
        for (std::size_t i = 0; i < order.size(); ++i) {
            book_.Tell(MatchStep::Contained, i, order.size());
            FindHolders(order[i]);
        }
        Verify();
        AddMerges();
        return std::move(found_);
    }

 private:
    [[nodiscard]] bool Has(std::size_t record, KeyKind kind) const {
        return (kinds_[record] & Bit(kind)) != 0;
    }
    [[nodiscard]] static std::uint8_t Bit(KeyKind kind) {
        return static_cast<std::uint8_t>(1U << static_cast<unsigned>(kind));
    }

    void FindNarrowest(KeyKind kind) {
        for (const Bucket& bucket : book_.BucketsOf(kind)) {
            for (const std::uint32_t record : bucket.Records) {
                const Bucket*& least = narrowest_[record];
                kinds_[record] = static_cast<std::uint8_t>(kinds_[record] | Bit(kind));
                if (least == nullptr || bucket.Records.size() < least->Records.size()) {
                    least = &bucket;
                }
            }
        }
    }

    // Whoever holds everything shares each key, also the one that the fewest have.
    void FindHolders(std::uint32_t record) {
        const auto all = narrowest_[record]->Records;
        const auto some = all.first(std::min(all.size(), kMostCompared));
        const auto wanted = book_.HashesOf(record);
        std::vector<std::uint32_t> tops;
        for (const std::uint32_t other : some) {
            const auto held = book_.HashesOf(other);
            // One record may have very many fields, and hold very many others.
            if (held.size() > wanted.size() && is_top_[other] &&
                std::all_of(wanted.begin(), wanted.end(), [&held](std::uint64_t hash) {
                    return std::binary_search(held.begin(), held.end(), hash);
                })) {
                tops.push_back(other);
            }
        }
        const bool cut = some.size() < all.size();
        found_.Crowded += cut ? 1 : 0;
        if (tops.empty()) {
            return;
        }
        is_top_[record] = false;
        const bool phone_alone = !Has(record, KeyKind::Name) && !Has(record, KeyKind::Address);
        if (tops.size() == 1 && !cut && !phone_alone) {
            found_.Into[record] = tops.front();
            return;
        }
        found_.IsAsked[record] = true;
        const std::string why = phone_alone && tops.size() == 1 ? "a phone alone"
                                : cut                           ? "very many share what it has"
                                      : "several different records hold all of it";
        for (std::size_t i = 0; i < std::min(tops.size(), kMostNamed); ++i) {
            found_.Lines.push_back({Action::Ask,
                                    Tier::Contained,
                                    {std::min(record, tops[i]), std::max(record, tops[i])},
                                    Described(book_.From(), record) + ": " + why});
        }
    }

    // Hashes found them; what they hold decides.
    void Verify() {
        for (std::uint32_t i = 0; i < found_.Into.size(); ++i) {
            if (found_.Into[i] != i) {
                groups_[found_.Into[i]].push_back(i);
            }
        }
        KeyList keys;
        for (auto& group : groups_) {
            const std::uint32_t top = group.first;
            book_.Keys().Fill(book_.From().Contacts[top], keys);
            const std::vector<std::string> held = keys.Sorted();
            std::erase_if(group.second, [&](std::uint32_t record) {
                book_.Keys().Fill(book_.From().Contacts[record], keys);
                const std::vector<std::string> wanted = keys.Sorted();
                const bool is_held =
                    std::all_of(wanted.begin(), wanted.end(), [&held](const std::string& key) {
                        return std::binary_search(held.begin(), held.end(), key);
                    });
                found_.Into[record] = is_held ? top : record;
                return !is_held;
            });
        }
    }

    void AddMerges() {
        for (auto& [top, records] : groups_) {
            if (records.empty()) {
                continue;
            }
            records.push_back(top);
            std::sort(records.begin(), records.end());
            found_.Lines.push_back(
                {Action::Merge, Tier::Contained, std::move(records), Described(book_.From(), top)});
        }
    }

    const KeyedBook& book_;
    std::vector<const Bucket*> narrowest_;
    std::vector<std::uint8_t> kinds_;
    std::vector<bool> is_top_;
    std::map<std::uint32_t, std::vector<std::uint32_t>> groups_;
    Containment found_;
};

}  // namespace

Containment FindContained(const KeyedBook& book) {
    return HolderFinder(book).Find();
}

std::string Described(const Book& book, std::size_t record) {
    const Contact& contact = book.Contacts[record];
    const std::string name = Shortened(NameOf(book, contact).Shown);
    const std::string address = Shortened(FirstOf(book, contact, field::kEmail));
    if (address.empty() || address == name) {
        return Printable(name.empty() ? "(no name)" : name);
    }
    return Printable(name + (name.empty() ? "<" : " <") + address + ">");
}

}  // namespace orvik::book
