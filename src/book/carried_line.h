// A property as one line of vCard 4.0, to be carried through formats that hold less than it does.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "book/address_book.h"

namespace orvik::book {

// CarriedLine: group, name, parameters and value.
//   "item1.EMAIL;TYPE=HOME:a@b"
[[nodiscard]] std::string CarriedLine(const Book& book, const Property& property);

// FromCarriedLine: the property of such a line; nothing for any other text.
[[nodiscard]] std::optional<Property> FromCarriedLine(Book& book, std::string_view line);

}  // namespace orvik::book
