// What decides whether two records may be one person: names, and what nobody has twice.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "book/match/keyed_book.h"

namespace orvik::book {

struct PersonFacts {
    std::vector<FoldedName> Names;         // the first ones of very many
    std::string Shown;                     // the first of them as it is written, "" for none
    std::vector<std::uint64_t> Addresses;  // hashes, sorted
    std::vector<std::uint64_t> Phones;
    // Birthday and the like: field and value.
    std::vector<std::pair<std::uint32_t, std::string>> Singles;

    [[nodiscard]] bool IsBare() const { return Addresses.empty() && Phones.empty(); }
};

[[nodiscard]] PersonFacts PersonFactsOf(const KeyedBook& book, std::size_t record);

// HaveCompatibleNames: one of each that go together; a record without a name goes with all.
[[nodiscard]] bool HaveCompatibleNames(const PersonFacts& one, const PersonFacts& other);

// ConflictOf: the first field that both have with other values, by its number; kNoConflict for
// none. A day without its year, or a year alone, is no conflict with a whole date.
inline constexpr std::uint32_t kNoConflict = ~std::uint32_t{0};
[[nodiscard]] std::uint32_t ConflictOf(const PersonFacts& one, const PersonFacts& other);

// Whether two sorted rows have a number in common; the number, or 0.
[[nodiscard]] std::uint64_t SharedOf(const std::vector<std::uint64_t>& one,
                                     const std::vector<std::uint64_t>& other);

}  // namespace orvik::book
