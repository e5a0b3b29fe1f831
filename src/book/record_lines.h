// Which record begins on a line of a file. Lists of formats that keep people and lists in one file
// name their members so, as long as the book is in memory.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "book/address_book.h"

namespace orvik::book {

// MEMBER "x-orvik-line:7" of a list is the record that begins on line 7 of that property's file.
inline constexpr std::string_view kLineScheme = "x-orvik-line:";

class RecordLines {
 public:
    // The book must outlive this. Its records are gone through when the first one is asked for.
    explicit RecordLines(const Book& book) : book_(book) {}

    // The record that a member names by its line; nothing for any other member, and where no record
    // begins. Of several on one line the first is meant.
    [[nodiscard]] std::optional<std::size_t> RecordOf(const Property& member) const;

 private:
    const Book& book_;
    mutable std::unordered_map<std::uint64_t, std::size_t> records_;
};

}  // namespace orvik::book
