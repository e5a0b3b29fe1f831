// The line breaks of values that vCard can write as \n alone: which ones they are stands in a
// parameter, so that they come back.

#pragma once

#include <string>
#include <string_view>

#include "book/record.h"

namespace orvik::book {

inline constexpr std::string_view kBreaksParam = "X-ORVIK-BREAKS";

// BreaksOf: a letter for each break of a value: w for CR LF, r for CR, l for LF, n for \n that
// stands in it as it is; the last letter holds for all that follow. Empty if the form tells it all.
//   Text "a\r\nb\r\nc" -> "w";  Text "a\rb\nc" -> "rl";  Text "a\nb" -> ""
[[nodiscard]] std::string BreaksOf(std::string_view value, ValueForm form);

// WithBreaks: a value that was read, with the breaks that it had.
[[nodiscard]] std::string WithBreaks(std::string_view value,
                                     std::string_view breaks,
                                     ValueForm form);

}  // namespace orvik::book
