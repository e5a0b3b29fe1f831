#include "book/match/keyed_book.h"

#include <algorithm>

namespace orvik::book {
namespace {

// One number for all that a record holds.
std::uint64_t HashOfAll(std::span<const std::uint64_t> hashes) {
    std::uint64_t all = hashes.size();
    for (const std::uint64_t hash : hashes) {
        all = (all ^ hash) * 0x9E3779B97F4A7C15U;
        all ^= all >> 29U;
    }
    return all;
}

}  // namespace

KeyedBook::KeyedBook(const Book& book, TakesPart who)
    : book_(book), keys_(book), takes_part_(book.Contacts.size(), true) {
    const std::size_t count = book.Contacts.size();
    if (who == TakesPart::Placed) {
        LeaveOutUnplaced();
    }
    begin_.reserve(count + 1);
    first_equal_.resize(count);
    KeyList keys;
    for (std::size_t i = 0; i < count; ++i) {
        Tell(MatchStep::Keys, i, count);
        begin_.push_back(hashes_.size());
        first_equal_[i] = static_cast<std::uint32_t>(i);
        if (takes_part_[i] && book.Contacts[i].Kind == ContactKind::Person) {
            AddRecord(i, keys);
        }
    }
    begin_.push_back(hashes_.size());
    FindEqual();
    for (Kind& kind : kinds_) {
        FillBuckets(kind);
    }
}

// A plan names a record by the line on which it begins.
void KeyedBook::LeaveOutUnplaced() {
    const auto& contacts = book_.Contacts;
    std::vector<Entry> places;
    places.reserve(contacts.size());
    for (std::size_t i = 0; i < contacts.size(); ++i) {
        const Origin& from = contacts[i].From;
        takes_part_[i] = from.Lines > 0;
        places.push_back(
            {std::uint64_t{from.File} << 32U | from.Line, static_cast<std::uint32_t>(i), 0});
    }
    std::sort(places.begin(), places.end());
    for (std::size_t i = 1; i < places.size(); ++i) {
        if (places[i].Hash == places[i - 1].Hash) {
            takes_part_[places[i].Record] = false;
            takes_part_[places[i - 1].Record] = false;
        }
    }
    left_out_ = static_cast<std::size_t>(std::count(takes_part_.begin(), takes_part_.end(), false));
}

void KeyedBook::AddRecord(std::size_t record, KeyList& keys) {
    keys_.Fill(book_.Contacts[record], keys);
    const std::size_t from = hashes_.size();
    for (const KeyList::Key& key : keys.Keys()) {
        const std::uint64_t hash = keys.HashOf(key);
        hashes_.push_back(hash);
        if (key.Kind != KeyKind::Other) {
            kinds_[static_cast<std::size_t>(key.Kind)].Entries.push_back(
                {hash, static_cast<std::uint32_t>(record), key.Property});
        }
    }
    const auto begin = hashes_.begin() + static_cast<std::ptrdiff_t>(from);
    std::sort(begin, hashes_.end());
    hashes_.erase(std::unique(begin, hashes_.end()), hashes_.end());
}

// Hashes find them; what they hold decides.
void KeyedBook::FindEqual() {
    std::vector<Entry> all;
    for (std::size_t i = 0; i < first_equal_.size(); ++i) {
        if (begin_[i] < begin_[i + 1]) {
            all.push_back({HashOfAll(HashesOf(i)), static_cast<std::uint32_t>(i), 0});
        }
    }
    std::sort(all.begin(), all.end());
    KeyList keys;
    std::vector<std::string> wanted;
    for (std::size_t i = 0; i < all.size(); ++i) {
        Tell(MatchStep::Equal, i, all.size());
        const std::uint32_t first = i == 0 ? all[i].Record : first_equal_[all[i - 1].Record];
        const bool may_be = i > 0 && all[i].Hash == all[i - 1].Hash;
        if (!may_be) {
            wanted.clear();
            continue;
        }
        if (wanted.empty()) {
            keys_.Fill(book_.Contacts[first], keys);
            wanted = keys.Sorted();
        }
        keys_.Fill(book_.Contacts[all[i].Record], keys);
        if (keys.Sorted() == wanted) {
            first_equal_[all[i].Record] = first;
        } else {
            wanted.clear();
        }
    }
}

void KeyedBook::FillBuckets(Kind& kind) const {
    std::vector<Entry>& entries = kind.Entries;
    std::erase_if(entries,
                  [this](const Entry& one) { return first_equal_[one.Record] != one.Record; });
    std::sort(entries.begin(), entries.end());
    entries.erase(std::unique(entries.begin(),
                              entries.end(),
                              [](const Entry& one, const Entry& other) {
                                  return one.Hash == other.Hash && one.Record == other.Record;
                              }),
                  entries.end());
    kind.Records.reserve(entries.size());
    for (const Entry& one : entries) {
        kind.Records.push_back(one.Record);
    }
    for (std::size_t from = 0; from < entries.size();) {
        std::size_t to = from;
        while (to < entries.size() && entries[to].Hash == entries[from].Hash) {
            ++to;
        }
        kind.Buckets.push_back({entries[from].Hash,
                                std::span(kind.Records).subspan(from, to - from),
                                entries[from].Property});
        from = to;
    }
    entries = {};
}

const Bucket& KeyedBook::BucketAt(KeyKind kind, std::uint64_t hash) const {
    const std::span<const Bucket> buckets = BucketsOf(kind);
    const auto found =
        std::lower_bound(buckets.begin(), buckets.end(), hash, [](const Bucket& one, auto wanted) {
            return one.Hash < wanted;
        });
    return *found;
}

std::string KeyedBook::AddressOf(const Bucket& bucket) const {
    KeyList keys;
    keys_.AddOf(book_.Contacts[bucket.Records.front()], bucket.Property, keys);
    return keys.Keys().empty() ? "" : std::string(keys.TextOf(keys.Keys().front()));
}

void KeyedBook::Tell(MatchStep step, std::size_t done, std::size_t all) const {
    // The keys take about as long as all other steps.
    constexpr std::array<std::size_t, 8> kBegins = {0, 50, 60, 70, 75, 85, 90, 100};
    const std::size_t from = kBegins[static_cast<std::size_t>(step)];
    const std::size_t to = kBegins[static_cast<std::size_t>(step) + 1];
    book_.TellFar(from * all + (to - from) * done, 100 * all);
}

}  // namespace orvik::book
