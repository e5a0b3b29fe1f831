// Lists that need no reader of their own, only a filter. Formats: docs/formats/pegasus.md and
// docs/formats/alias-list.md.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// FilterPegasus: a Pegasus Mail distribution list without the lines that begin with "\". The line
// feed behind the last of several such lines stays.
//   "\\TITLE x\r\nA1\r\n\\NOSIG\r\nA2\r\n"  ->  "\r\nA1\nA2\r\n"
[[nodiscard]] std::string FilterPegasus(std::string_view text);

// FilterAliases: the alias lines of a file, each as the quoted name with the address directly
// behind it. "alias" counts in any case and anywhere.
//   "alias \"Al B\" A1\r\nalias Bo A2, x\r\n"  ->  "\"Al B\"A1\r\n\"Bo\"A2\r\n"
[[nodiscard]] std::string FilterAliases(std::string_view text);

}  // namespace orvik
