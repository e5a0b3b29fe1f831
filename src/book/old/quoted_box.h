// "Ada" <ada@example.org>, as lists of addresses have it.

#pragma once

#include <string>
#include <string_view>

#include "book/old/fitting.h"

namespace orvik::book {

// AppendBoxes: appends a line for each address of a person: the name, else a nickname, in quotes,
// and the address in brackets. From the second address on they are told as carried; without any the
// person is lost. A name with one of the signs is doubtful. The lines end with CR LF.
void AppendBoxes(Fitting& person, std::string_view signs, std::string& to);

// FitsBox: whether an address is read as it is from between brackets.
[[nodiscard]] bool FitsBox(std::string_view address);

// AppendBox: one of them; quotes in a name become apostrophes, as no program escapes them,
// and a backslash at its end a slash.
void AppendBox(std::string_view name, std::string_view address, std::string& to);

}  // namespace orvik::book
