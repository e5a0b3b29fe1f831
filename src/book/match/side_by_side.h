// Records that may be one person beside each other, value by value, and what merging would make of
// each.

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

// The values of a row: all records have the same one; or have it written in several ways; or have
// other ones, of what a person has once; or some have none.
enum class Alike : std::uint8_t { Equal, Spelled, Different, Partial };

// What merging does with a value: it stays, is carried under a name of its own, or goes, as it says
// nothing, or tells of the record and not of the person. Nothing is known of members of lists.
enum class Fate : std::uint8_t { Stays, Carried, Goes, Unknown };

struct SideValue {
    std::uint32_t Record = 0;  // by its place among those that are compared
    Property Field;            // of a list of values one of them
    Fate Becomes = Fate::Stays;
};

struct SideRow {
    Alike How = Alike::Equal;
    bool IsOfRecord = false;        // says nothing of the person: UID, time of saving
    std::vector<SideValue> Values;  // by record; at most one of each, at least one
};

struct SideBySide {
    std::shared_ptr<const Book> From;  // knows their names and details, and has the records alone
    std::vector<SideRow> Rows;
};

// Compare: the records of a book, the first of which would be kept. Names come first, what names
// the records last. n log n of the properties.
[[nodiscard]] SideBySide Compare(const Book& book, std::span<const std::uint32_t> records);

}  // namespace orvik::book
