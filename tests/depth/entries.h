// Entries, and how the tests read them off a text: literally, and with nothing of the engine.

#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::depth {

struct Entry {
    std::string Address;
    std::string Nickname;
    auto operator<=>(const Entry&) const = default;
};
using Entries = std::vector<Entry>;

// The entries of a Native text whose lines are all paired and ended by CR LF, with one middle line
// and no other "-nick-" among the addresses. No other text has any.
//   "A1\r\n-nick-\r\nAl\r\n" -> {"A1", "Al"}
[[nodiscard]] std::optional<Entries> EntriesOf(std::string_view native);
[[nodiscard]] std::string NativeOf(const Entries& entries);

// The lists of a Native text, line by line: what the main window has to show.
struct Listing {
    std::vector<std::string> Addresses;
    std::vector<std::string> Nicknames;
};
[[nodiscard]] Listing ListingOf(std::string_view native);

// The entries of an LDIF text, a Juno book or a Netscape 3 page that this program has written; a
// page has "_" in an address for a blank.
[[nodiscard]] Entries EntriesOfLdif(std::string_view ldif);
[[nodiscard]] Entries EntriesOfJuno(std::string_view book);
[[nodiscard]] Entries EntriesOfPage(std::string_view page);

// The addresses that the extraction finds in a file of up to 32000 bytes, one a line.
[[nodiscard]] std::vector<std::string> AddressesIn(std::string_view file);

// Whether the entries pass through every format unchanged: no character that one of them needs for
// itself, and no entry that holds nothing.
[[nodiscard]] bool ArePlain(const Entries& entries);

}  // namespace orvik::depth
