// Upper case once more, slow and literal: a list of letters.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "app/encoding.h"

namespace orvik::test {

// In UTF-8 the list knows a few letters only.
[[nodiscard]] inline std::string UpperLiterally(std::string_view text, Encoding encoding) {
    constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyz";
    constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr std::string_view kLower1252 =
        "\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
        "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF8\xF9\xFA\xFB\xFC\xFD\xFE"
        "\x9A\x9C\x9E\xFF";
    constexpr std::string_view kUpper1252 =
        "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
        "\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD\xDE"
        "\x8A\x8C\x8E\x9F";
    static_assert(kLower1252.size() == kUpper1252.size());
    constexpr std::string_view kPairs[][2] = {
        {"\xC3\xA9", "\xC3\x89"}, {"\xC4\xB1", "I"}, {"\xD0\xB6", "\xD0\x96"}};
    std::string upper;
    while (!text.empty()) {
        std::string_view letter = text.substr(0, 1);
        std::string_view capital = letter;
        if (const std::size_t at = kLower.find(letter); at != std::string_view::npos) {
            capital = kUpper.substr(at, 1);
        } else if (encoding == Encoding::Windows1252) {
            const std::size_t at_1252 = kLower1252.find(letter);
            capital = at_1252 == std::string_view::npos ? letter : kUpper1252.substr(at_1252, 1);
        } else {
            for (const auto& pair : kPairs) {
                if (text.substr(0, 2) == pair[0]) {
                    letter = pair[0];
                    capital = pair[1];
                }
            }
        }
        upper += capital;
        text.remove_prefix(letter.size());
    }
    return upper;
}

}  // namespace orvik::test
