#include "app/encoding.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace orvik {
namespace {

bool IsReserved(char32_t letter) {
    return letter == kLineSeparator || letter == kParagraphSeparator || letter == kLineFeedSign ||
           (letter >= 0xFDD0 && letter <= 0xFDEF) || (letter & 0xFFFEU) == 0xFFFE;
}

}  // namespace

Encoding EncodingOf(std::string_view bytes) {
    for (;;) {
        bytes.remove_prefix(AsciiLength(bytes));
        if (bytes.empty()) {
            return Encoding::Utf8;
        }
        const Utf8Letter next = FirstLetter(bytes);
        if (next.Length == 0 || IsReserved(next.Code)) {
            return Encoding::Windows1252;
        }
        bytes.remove_prefix(next.Length);
    }
}

std::size_t AsciiLength(std::string_view bytes) {
    using Block = std::array<std::uint64_t, 4>;
    constexpr std::uint64_t kForeign = 0x8080808080808080;
    std::size_t length = 0;
    for (; bytes.size() - length >= sizeof(Block); length += sizeof(Block)) {
        Block block;
        std::memcpy(block.data(), bytes.data() + length, sizeof(Block));
        if (((block[0] | block[1] | block[2] | block[3]) & kForeign) != 0) {
            break;
        }
    }
    while (length < bytes.size() && static_cast<unsigned char>(bytes[length]) < 0x80) {
        ++length;
    }
    return length;
}

Utf8Letter FirstLetter(std::string_view bytes) {
    const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = at(0);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) {
        return {};
    }
    char32_t letter = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xC0U) != 0x80) {
            return {};
        }
        letter = (letter << 6U) | (at(i) & 0x3FU);
    }
    const bool too_long = (length == 3 && letter < 0x800) || (length == 4 && letter < 0x10000);
    const bool surrogate = letter >= 0xD800 && letter <= 0xDFFF;
    if (too_long || surrogate || letter > 0x10FFFF) {
        return {};
    }
    return {letter, length};
}

}  // namespace orvik
