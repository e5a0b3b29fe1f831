// Numbers in settings.

#pragma once

#include <string_view>

namespace orvik {

// ToNumber: a decimal number with optional sign, point and exponent, blanks around it allowed.
//   " 4.6 " -> 4.6
// Errors: RunTimeError 13 for any other text, the empty one included; 6 beyond what a double holds.
[[nodiscard]] double ToNumber(std::string_view text);

// ToInteger: the same as a 16-bit integer, rounded half to even.
//   "4.5" -> 4,  "5.5" -> 6
// Errors: RunTimeError 13, or 6 outside -32768..32767.
[[nodiscard]] int ToInteger(std::string_view text);

}  // namespace orvik
