#include "testkit/transcript.h"

#include <array>
#include <charconv>

namespace orvik::testkit {

std::string Quote(std::string_view text) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        switch (c) {
            case '\r':
                quoted += "\\r";
                break;
            case '\n':
                quoted += "\\n";
                break;
            case '\t':
                quoted += "\\t";
                break;
            case '"':
            case '\\':
                quoted += '\\';
                quoted += c;
                break;
            default:
                if (byte >= 0x20 && byte <= 0x7E) {
                    quoted += c;
                } else {
                    quoted.append("\\x");
                    quoted += kHex[byte >> 4U];
                    quoted += kHex[byte & 0xFU];
                }
        }
    }
    return quoted += '"';
}

std::string Format(double number) {
    std::array<char, 400> digits{};
    const auto result = std::to_chars(
        digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return {digits.data(), result.ptr};
}

std::string Format(bool value) {
    return value ? "True" : "False";
}

std::string FormatList(const std::vector<std::string>& formatted) {
    std::string list = "[";
    for (const std::string& item : formatted) {
        if (list.size() > 1) {
            list += ", ";
        }
        list += item;
    }
    return list += ']';
}

}  // namespace orvik::testkit
