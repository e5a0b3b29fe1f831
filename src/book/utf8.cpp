#include "book/utf8.h"

#include <cstdint>
#include <cstring>

#include "app/encoding.h"

namespace orvik::book {
namespace {

// Calls plain(part) for each part of valid text and bad() for each run of other bytes.
template <class Plain, class Bad>
void Walk(std::string_view text, const Plain& plain, const Bad& bad) {
    std::size_t begin = 0;
    std::size_t at = 0;
    bool broken = false;
    while (at < text.size()) {
        const std::size_t ascii = AsciiLength(text.substr(at));
        broken = broken && ascii == 0;
        at += ascii;
        if (at == text.size()) {
            break;
        }
        const std::size_t length = FirstLetter(text.substr(at)).Length;
        if (length > 0) {
            at += length;
            broken = false;
            continue;
        }
        plain(text.substr(begin, at - begin));
        if (!broken) {
            bad();
        }
        broken = true;
        begin = ++at;
    }
    plain(text.substr(begin));
}

}  // namespace

std::size_t AsciiLength(std::string_view text) {
    constexpr std::uint64_t kHigh = 0x8080808080808080U;
    std::size_t at = 0;
    for (; at + sizeof kHigh <= text.size(); at += sizeof kHigh) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + at, sizeof eight);
        if ((eight & kHigh) != 0) {
            break;
        }
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) {
        ++at;
    }
    return at;
}

Utf8Count CountUtf8(std::string_view text) {
    Utf8Count count;
    Walk(
        text,
        [&](std::string_view part) {
            for (std::size_t at = AsciiLength(part); at < part.size();) {
                ++count.Letters;
                part.remove_prefix(at + FirstLetter(part.substr(at)).Length);
                at = AsciiLength(part);
            }
        },
        [&] { ++count.Bad; });
    return count;
}

std::size_t AppendUtf8(std::string_view text, std::string& to) {
    std::size_t bad = 0;
    Walk(
        text,
        [&](std::string_view part) { to.append(part); },
        [&] {
            to.append("\xEF\xBF\xBD");
            ++bad;
        });
    return bad;
}

std::string Shortened(std::string_view value) {
    constexpr std::size_t kLongest = 60;
    if (value.size() <= kLongest) {
        return std::string(value);
    }
    std::size_t end = kLongest;
    while (end > 0 && (static_cast<unsigned char>(value[end]) & 0xC0U) == 0x80) {
        --end;
    }
    return std::string(value.substr(0, end)) + "...";
}

}  // namespace orvik::book
