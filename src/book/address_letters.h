// Kinds of letters in e-mail addresses.

#pragma once

#include <string_view>

#include "book/utf8.h"

namespace orvik::book {

[[nodiscard]] constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr bool IsLetterOrDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

[[nodiscard]] constexpr bool IsPlainAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

[[nodiscard]] inline bool IsPlainAscii(std::string_view text) {
    return AsciiLength(text) == text.size();
}

}  // namespace orvik::book
