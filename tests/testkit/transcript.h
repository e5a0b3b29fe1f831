// How values are written in a transcript.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::testkit {

// Quote: text in double quotes; printable ASCII stands for itself.
//   "a\"\r\xFF"  ->  "\"a\\\"\\r\\xFF\""
[[nodiscard]] std::string Quote(std::string_view text);

// The shortest decimal that reads back: 850.25, 6000.
[[nodiscard]] std::string Format(double number);
[[nodiscard]] std::string Format(bool value);

// ["a", "b"] and [0, 2]; [] where there is none.
[[nodiscard]] std::string FormatList(const std::vector<std::string>& formatted);

}  // namespace orvik::testkit
