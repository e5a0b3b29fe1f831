// What becomes of a record when a person types a name, a nickname, an address or a phone.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

enum class Editable : std::uint8_t { Name, Nickname, Address, Phone };

// EditText: the text that is edited: the name that is shown, else the first value of the kind.
[[nodiscard]] std::string EditText(const Book& book, const Contact& contact, Editable what);
// How many values of the kind there are, one for the name.
[[nodiscard]] std::size_t CountOf(const Book& book, const Contact& contact, Editable what);

// TypedValue: what was typed without blanks around it, and on one line.
//   " Ada\nAbbott " -> "Ada Abbott"
[[nodiscard]] std::string TypedValue(std::string_view typed);

// What there is to say against a value, for a person; nothing is said of most.
struct Verdict {
    bool IsRefused = false;
    std::string Words = {};  // "two @"
};
// CheckTyped: of a TypedValue. Only a name must hold something: any other empty value is none.
//   Address, "al@@example.org" -> refused, "two @";  Phone, "none" -> refused, "no digit"
[[nodiscard]] Verdict CheckTyped(Editable what, std::string_view value);

// EditedFields: the properties of a contact in which value takes the place of EditText. Its
// parameters stay, but for what says how the old text was written down; all other values stay. An
// empty value removes the old one. With a new name the parts of N follow.
[[nodiscard]] std::vector<Property> EditedFields(Book& book,
                                                 const Contact& contact,
                                                 Editable what,
                                                 std::string_view value);

// PartsOfNewName: the N for another name. Parts stay where they still stand in the name.
//   "Abbott;Ada;Maria;Dr.;", "Dr. Ada Maria Berg" -> "Berg;Ada;Maria;Dr.;"
//   "Abbott;Ada;;;", "Eve Abbott" -> "Abbott;Eve;;;"
[[nodiscard]] std::string PartsOfNewName(std::string_view parts, std::string_view name);

}  // namespace orvik::book
