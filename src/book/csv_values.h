// What programs write in cells that means something else than it says.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// What parts several values of a cell of Google.
inline constexpr std::string_view kBetweenValues = " ::: ";

// IsNothing: whether a value is what a program writes where it knows nothing, by the name of the
// field.
//   "birthday", "0/0/00" -> true;  "gender", "Unspecified" -> true;  "email1.type", "SMTP" -> true
[[nodiscard]] bool IsNothing(std::string_view field, std::string_view value);

// What a kind says: types of vCard, parted by blanks, or a label that is none. A star is for the
// preferred one.
struct CsvKind {
    std::string Types;
    std::string_view Label;
};
//   "* Work Fax" -> "work fax pref";  "Mobile" -> "cell";  "* Boat" -> "pref", label "Boat"
[[nodiscard]] CsvKind CsvKindOf(std::string_view text);

// WordOfTypes: the kind that these types are, as Google calls it; empty for none.
//   "work fax" -> "Work Fax";  "cell" -> "Mobile"
[[nodiscard]] std::string_view WordOfTypes(std::string_view types);

// DateOfParts: "1980", "4", "12" -> "1980-04-12";  "", "4", "12" -> "--04-12";  empty for what is
// no date.
[[nodiscard]] std::string DateOfParts(std::string_view year,
                                      std::string_view month,
                                      std::string_view day);

// PlainDate: what vCard has for a date as programs read it; empty for anything else.
//   "19800412" -> "1980-04-12";  "--0412" -> "--04-12"
[[nodiscard]] std::string PlainDate(std::string_view value);

}  // namespace orvik::book
