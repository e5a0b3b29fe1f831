// Words of other letters in ASCII, by RFC 2047: =?UTF-8?Q?J=C3=B6rg?=

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// DecodedWords: a text with such words as letters. Blanks between two of them do not count, and a
// letter may be in two of them; a word that cannot be read, or of a set that nobody knows, stays.
//   "=?iso-8859-1?q?J=F6rg?= Berg" -> "J\u00F6rg Berg"
[[nodiscard]] std::string DecodedWords(std::string_view text);

// EncodedWords: a UTF-8 text as such words, each of at most 75 letters, if it has letters outside
// of ASCII or could be taken for one; else the text itself.
//   "J\u00F6rg" -> "=?UTF-8?Q?J=C3=B6rg?="
[[nodiscard]] std::string EncodedWords(std::string_view text);

// Whether there may be such a word.
[[nodiscard]] inline bool HasEncodedWords(std::string_view text) {
    return text.find("=?") != std::string_view::npos && text.find("?=") != std::string_view::npos;
}

}  // namespace orvik::book
