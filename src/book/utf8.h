// What is valid UTF-8 in a text of unknown letters.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvik::book {

struct Utf8Count {
    std::size_t Letters = 0;  // of more than one byte
    std::size_t Bad = 0;      // runs of bytes that are no letter
};

// The place of the first byte above 127, or the length of a text of ASCII.
[[nodiscard]] std::size_t AsciiLength(std::string_view text);

[[nodiscard]] Utf8Count CountUtf8(std::string_view text);

// Appends text with U+FFFD for each run of bytes that are no letter. Returns how many.
std::size_t AppendUtf8(std::string_view text, std::string& to);

// Shortened: the beginning of a long value, for a person, without a letter that is cut.
[[nodiscard]] std::string Shortened(std::string_view value);

}  // namespace orvik::book
