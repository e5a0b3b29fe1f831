// All records of a book with what they are found by. Equal ones are looked at once.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/match/match_line.h"
#include "book/match/record_keys.h"

namespace orvik::book {

// Records that share a key, in their order.
struct Bucket {
    std::uint64_t Hash = 0;
    std::span<const std::uint32_t> Records;
    std::uint32_t Property = 0;  // of the first one, that has the key
};

// So many records of a bucket are compared with each other. What more of them share is hardly
// one person's.
inline constexpr std::size_t kMostCompared = 64;

// The steps of a look for matches, one behind the other.
enum class MatchStep : std::uint8_t { Keys, Equal, Contained, Lists, Pairs, Addresses, Names };

class KeyedBook {
 public:
    // Goes through the people of the book, and looks which are equal. The book must outlive it, and
    // is told how far this is; what it throws ends it. n log n.
    explicit KeyedBook(const Book& book, TakesPart who = TakesPart::Placed);

    [[nodiscard]] const Book& From() const { return book_; }
    [[nodiscard]] const RecordKeys& Keys() const { return keys_; }
    [[nodiscard]] std::size_t Count() const { return first_equal_.size(); }
    [[nodiscard]] std::size_t LeftOut() const { return left_out_; }

    // The first record that holds the same; itself where it is that, or no other does. A record
    // that is left out, or holds nothing, is its own.
    [[nodiscard]] std::uint32_t FirstEqual(std::size_t record) const {
        return first_equal_[record];
    }
    // Whether a record is a person that takes part, and no earlier one holds the same.
    [[nodiscard]] bool IsCompared(std::size_t record) const {
        return first_equal_[record] == record && begin_[record] < begin_[record + 1];
    }
    [[nodiscard]] bool TakesPartAt(std::size_t record) const { return takes_part_[record]; }

    // The hashes of what a record holds, sorted.
    [[nodiscard]] std::span<const std::uint64_t> HashesOf(std::size_t record) const {
        return std::span(hashes_).subspan(begin_[record], begin_[record + 1] - begin_[record]);
    }
    // The records that share an address, a phone or a name, the kind's buckets sorted by hash.
    // Buckets of one record are there, too.
    [[nodiscard]] std::span<const Bucket> BucketsOf(KeyKind kind) const {
        return kinds_[static_cast<std::size_t>(kind)].Buckets;
    }
    [[nodiscard]] const Bucket& BucketAt(KeyKind kind, std::uint64_t hash) const;

    // The text of an address that a bucket shares.
    [[nodiscard]] std::string AddressOf(const Bucket& bucket) const;

    // Says that so much of a step is done, to whoever wants to know; may throw to end it.
    void Tell(MatchStep step, std::size_t done, std::size_t all) const;

 private:
    struct Entry {
        std::uint64_t Hash = 0;
        std::uint32_t Record = 0;
        std::uint32_t Property = 0;

        [[nodiscard]] bool operator<(const Entry& other) const {
            return Hash != other.Hash       ? Hash < other.Hash
                   : Record != other.Record ? Record < other.Record
                                            : Property < other.Property;
        }
    };
    struct Kind {
        std::vector<Entry> Entries;
        std::vector<std::uint32_t> Records;
        std::vector<Bucket> Buckets;
    };

    void LeaveOutUnplaced();
    void AddRecord(std::size_t record, KeyList& keys);
    void FindEqual();
    void FillBuckets(Kind& kind) const;

    const Book& book_;
    RecordKeys keys_;
    std::vector<bool> takes_part_;
    std::size_t left_out_ = 0;
    std::vector<std::uint64_t> hashes_;
    std::vector<std::size_t> begin_;
    std::vector<std::uint32_t> first_equal_;
    std::array<Kind, 3> kinds_;  // names, addresses, phones
};

}  // namespace orvik::book
