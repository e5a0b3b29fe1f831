// Names of files as text that is only shown. What would steer a terminal, turn the order of letters
// round or begin a line could make one name look like another, or like a message of the program.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// Printable: a name with each control character (C0, C1 and DEL), each sign that changes the
// direction of letters, each line or paragraph separator and each byte that is no UTF-8 as an
// escape. The letters stay.
//   "J\xC3\xBCrg\n" -> "J\xC3\xBCrg\\x0A";  "a\xE2\x80\xAE" "b" -> "a\\u202Eb";  "\xFC" -> "\\xFC"
[[nodiscard]] std::string Printable(std::string_view name);

// PrintableIn: a text with a name in it as Printable gives it. Without one the text stays.
//   "The File a\nb is large", "a\nb" -> "The File a\\x0Ab is large"
[[nodiscard]] std::string PrintableIn(std::string_view text, std::string_view name);

// PrintableLine: a message as one line: a line break in it, or several in a row, is a blank.
//   "Two\r\n\r\nlines" -> "Two lines"
[[nodiscard]] std::string PrintableLine(std::string_view text);

}  // namespace orvik
