// What is in each source of a book, told to a person.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/detect.h"

namespace orvik::book {

struct Facts {
    std::string Form;      // "Netscape 4 LDIF", "vCard 2.1, 3.0"
    std::string LineEnds;  // "LF", "CR LF (2 others)"
    std::size_t People = 0;
    std::size_t Lists = 0;
    std::size_t Addresses = 0;
    std::size_t Phones = 0;
    std::size_t Notes = 0;
    std::size_t Nicknames = 0;
    // The attributes of LDIF that nicknames stand in, in lower case.
    std::vector<std::string> NicknameNames;
    // Fields of LDIF and columns of CSV that vCard has no name for.
    std::vector<std::string> UnknownNames;
};

// NameOf: what a person calls a format: "LDIF", "Juno address book".
[[nodiscard]] std::string_view NameOf(Format form);

// FactsOf: of each source by its number; formats are those that were detected, in the same order.
[[nodiscard]] std::vector<Facts> FactsOf(const Book& book, std::span<const Format> formats);

// LdifProgram: the program that wrote a text of LDIF, as far as its attributes tell; empty where
// they do not.
//   "xmozillanickname: al" -> "Netscape 4";  "mozillaNickname: al" -> "Mozilla"
[[nodiscard]] std::string_view LdifProgram(std::string_view text);

// LineEndsOf: the line end that is there most, and how many others there are.
[[nodiscard]] std::string LineEndsOf(std::string_view text);

}  // namespace orvik::book
