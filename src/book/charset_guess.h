// What bytes that are not UTF-8 could be.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// The logical lines of a text that are not UTF-8, joined, at most 256 KiB of them.
[[nodiscard]] std::string LinesNotUtf8(std::string_view text);

// GuessCharset: a set that is not Western, as far as uchardet can be trusted: it takes Western
// texts for many others. Empty if it knows none, or of too few letters.
//   "\xC0\xCC\xB8\xA7\xC8\xAB\xB1\xE6\xB5\xBF" -> "EUC-KR" or the like;  "J\xF6rg" -> ""
[[nodiscard]] std::string GuessCharset(std::string_view sample);

// IsOfOldMacs: whether lines that end with CR hold letters that windows-1252 has signs for.
[[nodiscard]] bool IsOfOldMacs(std::string_view text, std::string_view sample);

// WordsEncodedTwice: up to three words of a text whose letters are for the most part UTF-8 that was
// taken for windows-1252 and became UTF-8 once more; empty for any other text.
//   "J\u00C3\u00B6rg M\u00C3\u00BCller" -> both words, parted by ", ";  "J\u00F6rg" -> none
[[nodiscard]] std::string WordsEncodedTwice(std::string_view text);

}  // namespace orvik::book
