// Which attributes a program wants its fields under.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

// Thunderbird has the attributes of Mozilla, but of several lines of one it keeps the last.
enum class LdifAttributes : std::uint8_t { Mozilla, Netscape, KContacts, Evolution, Thunderbird };

// The attributes of one field in each set; empty where the program has none. Thunderbird's are
// those of Mozilla.
struct LdifNames {
    std::string_view Mozilla;
    std::string_view Netscape;
    std::string_view KContacts;
    std::string_view Evolution;
    [[nodiscard]] std::string_view In(LdifAttributes set) const;
};

// PhoneNames: the attributes of a phone by its types; work where they say nothing. Exact says
// whether the types come back from the attribute.
struct PhoneNames {
    LdifNames Names;
    bool Exact = false;
};
[[nodiscard]] PhoneNames PhoneNamesOf(const Book& book, const Property& phone);

// Whether an address is written as the one at home; all others are those at work.
[[nodiscard]] bool IsHomeAddress(const Book& book, const Property& address);

// The attributes of the components of an address, from the post-office box to the country.
[[nodiscard]] LdifNames AddressNames(bool home, std::size_t part);

// What a property of another kind is called; all empty for one that no program has.
[[nodiscard]] LdifNames SimpleNames(NameId name);

// How many e-mail addresses of a person Thunderbird reads.
inline constexpr std::size_t kAddressesOfThunderbird = 2;

// The e-mail address with this number, from 0.
[[nodiscard]] LdifNames EmailNames(std::size_t number);

[[nodiscard]] LdifNames UrlNames(bool home);

}  // namespace orvik::book
