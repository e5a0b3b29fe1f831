// What tells whether two working texts hold the same entries, whatever forms they are in.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvik {

struct EntrySum {
    std::size_t Count = 0;
    // Of the addresses and nicknames in order; entries that hold neither do not count in it.
    std::uint64_t Hash = 0;
};

// SumEntries: counts and hashes the entries of a text in one pass. native: it is in the Native
// form; else it is a list with this separator.
//   "\"Al\" <A1>\r", list  and  "A1\r\n-nick-\r\nAl\r\n", Native: 1 entry each, the same hash
[[nodiscard]] EntrySum SumEntries(std::string_view text, bool native, std::string_view separator);

}  // namespace orvik
