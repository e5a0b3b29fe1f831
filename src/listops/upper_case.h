// Letters in upper case, for an order without regard to case.

#pragma once

#include <string>
#include <string_view>

#include "app/encoding.h"

namespace orvik {

// ToUpper: the text with its letters in upper case, in the encoding of the whole that it is part
// of.
//   "\xE9", Windows1252 -> "\xC9";  "\xC3\xA9", Utf8 -> "\xC3\x89"
// In UTF-8 these are Unicode's simple upper cases, up to U+04FF and as far as they end there; the
// bytes then compare in the order of the letters. A letter whose upper case is two letters stands.
[[nodiscard]] std::string ToUpper(std::string_view text, Encoding encoding);

}  // namespace orvik
