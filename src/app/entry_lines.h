// The entries of a working text as a list that any reader of lists takes, whatever form it is in.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// EntryLines: each entry as "NICK" <ADDR> in a line that ends with CR LF, as Save As writes a text
// list; one that holds nothing is left out. native says which form the text is in; separator is
// that of a list, whose last entry keeps its last letter if nothing ends it.
//   "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n", Native  ->  "\"Al\" <A1>\r\n\"\" <A2>\r\n"
[[nodiscard]] std::string EntryLines(std::string_view text,
                                     bool native,
                                     std::string_view separator);

}  // namespace orvik
