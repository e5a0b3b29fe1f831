#include "app/printable.h"

#include <cstddef>

#include "app/encoding.h"

namespace orvik {
namespace {

constexpr std::string_view kLineBreaks = "\r\n";

constexpr std::size_t kByteDigits = 2;
constexpr std::size_t kLetterDigits = 4;

//   'x', 0x1B, 2 digits -> "\\x1B"
void AppendEscape(std::string& shown, char sign, char32_t number, std::size_t digits) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    shown.append({'\\', sign});
    for (std::size_t i = digits; i > 0; --i) {
        shown += kDigits[(number >> (4 * (i - 1))) & 0xFU];
    }
}

bool IsControl(char32_t letter) {
    return letter < 0x20 || (letter >= 0x7F && letter < 0xA0);
}

bool IsDirection(char32_t letter) {
    return letter == 0x061C || letter == 0x200E || letter == 0x200F ||
           (letter >= 0x202A && letter <= 0x202E) || (letter >= 0x2066 && letter <= 0x2069);
}

}  // namespace

std::string Printable(std::string_view name) {
    std::string shown;
    while (!name.empty()) {
        const Utf8Letter next = FirstLetter(name);
        const std::size_t length = next.Length == 0 ? 1 : next.Length;
        const auto byte = static_cast<unsigned char>(name.front());
        if (next.Length == 0 || (next.Length == 1 && IsControl(byte))) {
            AppendEscape(shown, 'x', byte, kByteDigits);
        } else if (IsControl(next.Code) || IsDirection(next.Code) || next.Code == kLineSeparator ||
                   next.Code == kParagraphSeparator) {
            AppendEscape(shown, 'u', next.Code, kLetterDigits);
        } else {
            shown.append(name.substr(0, length));
        }
        name.remove_prefix(length);
    }
    return shown;
}

std::string PrintableIn(std::string_view text, std::string_view name) {
    std::string shown(text);
    if (const std::size_t start = text.find(name); start != std::string_view::npos) {
        shown.replace(start, name.size(), Printable(name));
    }
    return shown;
}

std::string PrintableLine(std::string_view text) {
    std::string line;
    for (;;) {
        const std::size_t end = text.find_first_of(kLineBreaks);
        line += Printable(text.substr(0, end));
        if (end == std::string_view::npos) {
            return line;
        }
        line += ' ';
        const std::size_t next = text.find_first_not_of(kLineBreaks, end);
        text = next == std::string_view::npos ? std::string_view() : text.substr(next);
    }
}

}  // namespace orvik
