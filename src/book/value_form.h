// Values of several parts: components by ";", values by ",", with \\ \, \; and \n as escapes. It is
// how vCard writes them, and how the model keeps them.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvik::book {

// AppendEscaped: appends one value; each line break becomes \n.
//   "Abbott, Ada" -> "Abbott\, Ada"
void AppendEscaped(std::string_view text, std::string& to);
// The same for line breaks alone.
void AppendOneLine(std::string_view text, std::string& to);
[[nodiscard]] bool NeedsEscapes(std::string_view text);

// A text without blanks and line ends around it.
[[nodiscard]] std::string_view WithoutBlanksAround(std::string_view text);

// Unescaped: the text that a value stands for. Another letter behind a backslash keeps it.
//   "a\, b\nc\d" -> "a, b", line feed, "c\d"
[[nodiscard]] std::string Unescaped(std::string_view value);

// TakePart: the text up to the next separator that is not escaped; rest moves behind it. Nothing is
// left of rest at the end, and more says whether there was a separator.
//   rest "a\;b;c" -> "a\;b", rest "c", more
struct TakenPart {
    std::string_view Text;
    bool More = false;
};
[[nodiscard]] TakenPart TakePart(std::string_view& rest, char separator);

// How many components a value has; an empty one has one.
[[nodiscard]] std::size_t PartCount(std::string_view value);

// PartAt: a component by its number from 0, escapes kept; empty for one that is not there.
[[nodiscard]] std::string_view PartAt(std::string_view value, std::size_t number);

// WithPlainColons: an address of the web whose colons some programs escape.
//   "http\://a" -> "http://a"
[[nodiscard]] std::string WithPlainColons(std::string_view address);

}  // namespace orvik::book
