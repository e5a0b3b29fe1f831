#include "store/setting_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include <glib.h>

namespace orvik {
namespace {

constexpr std::array<std::pair<char, char>, 4> kLetters = {
    std::pair{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}, {'\\', '\\'}};

constexpr std::size_t kOctalDigits = 3;

void AppendOctal(std::string& line, unsigned char byte) {
    line += '\\';
    for (const int shift : {6, 3, 0}) {
        line += static_cast<char>('0' + ((byte >> shift) & 7));
    }
}

// How many bytes of text form its first letter; 0 where they are no UTF-8.
std::size_t LetterLength(std::string_view text) {
    const gunichar letter =
        g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
    return letter >= 0x110000 ? 0 : static_cast<std::size_t>(g_unichar_to_utf8(letter, nullptr));
}

// Whether a backslash before this text begins no escape, whatever becomes of the text.
bool StandsForItself(std::string_view behind) {
    return !behind.empty() && g_ascii_isalpha(behind.front()) &&
           std::none_of(kLetters.begin(), kLetters.end(), [&](const auto& row) {
               return row.second == behind.front();
           });
}

// The byte of three octal digits, -1 where they are none.
int OctalByte(std::string_view digits) {
    const bool octal =
        digits.size() == kOctalDigits && digits[0] <= '3' &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '7'; });
    return octal ? (digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0') : -1;
}

}  // namespace

std::string EscapeSetting(std::string_view text, SettingPart part) {
    const std::string_view ends_name = part == SettingPart::Name ? "=[]#;" : "";
    std::string line;
    for (std::size_t i = 0; i < text.size();) {
        const char c = text[i];
        const auto byte = static_cast<unsigned char>(c);
        const std::size_t length = byte < 0x80 ? 1 : LetterLength(text.substr(i));
        const auto* const letter = std::find_if(
            kLetters.begin(), kLetters.end(), [c](const auto& row) { return row.first == c; });
        const bool at_end = i == 0 || i + 1 == text.size();
        if (c == '\\' && StandsForItself(text.substr(i + 1))) {
            line += c;
        } else if (letter != kLetters.end()) {
            line.append({'\\', letter->second});
        } else if (length == 0 || byte < ' ' || byte == 0x7F || (c == ' ' && at_end) ||
                   ends_name.find(c) != std::string_view::npos) {
            AppendOctal(line, byte);
        } else {
            line.append(text.substr(i, length));
        }
        i += std::max<std::size_t>(length, 1);
    }
    return line;
}

std::string UnescapeSetting(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        text += line[i];
        if (line[i] != '\\' || i + 1 == line.size()) {
            continue;
        }
        const char next = line[i + 1];
        const auto* const letter =
            std::find_if(kLetters.begin(), kLetters.end(), [next](const auto& row) {
                return row.second == next;
            });
        if (letter != kLetters.end()) {
            text.back() = letter->first;
            ++i;
        } else if (const int byte = OctalByte(line.substr(i + 1, kOctalDigits)); byte >= 0) {
            text.back() = static_cast<char>(byte);
            i += kOctalDigits;
        }
    }
    return text;
}

}  // namespace orvik
