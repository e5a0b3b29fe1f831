// Bytes written as letters, by GLib.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// AppendBase64: appends the bytes that base64 stands for; blanks and line ends in it do not matter,
// and a missing end neither. False, with nothing appended, for anything else.
//   "QWRh" -> "Ada";  "Q WR h" -> "Ada";  "no!" -> false
[[nodiscard]] bool AppendBase64(std::string_view base64, std::string& to);

// ToBase64: base64 in one line.
[[nodiscard]] std::string ToBase64(std::string_view bytes);

// AppendQuotedPrintable: appends the bytes that a value without soft line ends stands for. An "="
// that begins no byte stays; returns whether there was one.
//   "J=F6rg" -> "J\xF6rg";  "a=b" -> "a=b", true
bool AppendQuotedPrintable(std::string_view text, std::string& to);

}  // namespace orvik::book
