// Texts of any bytes as names and values of a settings file, and back.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

enum class SettingPart { Name, Value };

// EscapeSetting: a text in one line. Readable letters stay; a control character, a blank at either
// end, a byte that is no UTF-8, and a backslash that would begin an escape, become an escape of a
// backslash and a letter or three octal digits. In a name so do the signs that end one.
//   " a\r\nb" -> "\\040a\\r\\nb";  "\xFC" -> "\\374";  "c:\\new\\a" -> "c:\\\\new\\a"
[[nodiscard]] std::string EscapeSetting(std::string_view text, SettingPart part);

// UnescapeSetting: the text again. A backslash that begins no escape stands for itself, so that a
// path written by hand is understood where it can be.
[[nodiscard]] std::string UnescapeSetting(std::string_view line);

}  // namespace orvik
