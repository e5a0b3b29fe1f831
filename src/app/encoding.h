// How the bytes of a text are letters. Old address books are Windows-1252, newer ones UTF-8, and
// nothing in them says which. What is shown and what is sorted must agree on it, so this is the one
// place that decides.

#pragma once

#include <cstddef>
#include <string_view>

namespace orvik {

enum class Encoding { Utf8, Windows1252 };

// Letters that a text box has for a lone CR, for CR LF and for a lone LF.
inline constexpr char16_t kLineSeparator = 0x2028;
inline constexpr char16_t kParagraphSeparator = 0x2029;
inline constexpr char16_t kLineFeedSign = 0x240A;

// EncodingOf: UTF-8 for a text that is valid UTF-8, Windows-1252 for any other: one byte decides
// for the whole text. A text with U+2028, U+2029, U+240A or a noncharacter counts as not UTF-8,
// since a text box needs these letters for itself.
//   "J\xC3\xBCrgen" -> Utf8,  "J\xFCrgen" -> Windows1252,  "" -> Utf8
[[nodiscard]] Encoding EncodingOf(std::string_view bytes);

// AsciiLength: how many bytes at the start of a text are ASCII. They are the same letters in both
// encodings.
//   "J\xC3\xBCrgen" -> 1
[[nodiscard]] std::size_t AsciiLength(std::string_view bytes);

struct Utf8Letter {
    char32_t Code = 0;
    std::size_t Length = 0;  // 0 for bytes that are no UTF-8
};

// FirstLetter: the UTF-8 sequence at the start of a text that is not empty.
//   "\xC3\xBC" "b" -> U+00FC, 2 bytes
[[nodiscard]] Utf8Letter FirstLetter(std::string_view bytes);

}  // namespace orvik
