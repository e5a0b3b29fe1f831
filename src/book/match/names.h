// Whether two names may be one person's.

#pragma once

#include <string_view>

#include "book/match/folding.h"

namespace orvik::book {

// AreCompatible: each word of the shorter name stands in the longer one, too, or one of the two is
// the other's initial, at least one word being whole in both; or the names differ in a typing
// error: a letter too much, too few or another one, or two that changed places, in one word of
// three letters at least that has no digits; or in blanks alone. No name is compatible with none.
//   "B. Berg", "Ben Berg" -> true;  "Ben Brg", "Ben Berg" -> true;  "Sales", "Ben Berg" -> false
[[nodiscard]] bool AreCompatible(const FoldedName& one, const FoldedName& other);

// IsOneSlip: whether one typing error makes one word of the other.
//   "berg", "brg" -> true;  "berg", "ebrg" -> true;  "berg", "berg" -> false
[[nodiscard]] bool IsOneSlip(std::string_view one, std::string_view other);

}  // namespace orvik::book
