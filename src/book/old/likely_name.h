// The parts of a name that stands in one piece.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// LikelyName: the N that it most likely is: all words but the last one are given names.
//   "Abbott, Ada" -> "Abbott;Ada;;;";  "Ada Maria Abbott" -> "Abbott;Ada Maria;;;"
[[nodiscard]] std::string LikelyName(std::string_view name);

// Whether it was parted at a blank, which may be wrong.
[[nodiscard]] bool IsGuessedName(std::string_view name);

}  // namespace orvik::book
