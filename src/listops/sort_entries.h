// Sorts the entries of a Native text.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvik {

enum class SortKey { Address, Nickname };

// The lines of each block in their new order, with their line breaks.
struct SortedBlocks {
    std::string Addresses;
    std::string Nicknames;
};

// The most entries that can be sorted, and how many of them the result has room for: the last one
// of a full book is left out.
inline constexpr std::size_t kMostSorted = 500;

// SortEntries: sorts by the key lines without regard to case, in the encoding of the whole text;
// entries with equal keys keep their order, and entries that lack a key line come first.
//   "bx\r\nAx\r\nax\r\n-nick-\r\n1\r\n2\r\n3\r\n" by address  ->  Ax ax bx, 2 3 1
// A line counts only if a line feed ends it. Nothing is returned if either block has more than 500.
[[nodiscard]] std::optional<SortedBlocks> SortEntries(std::string_view text, SortKey key);

}  // namespace orvik
