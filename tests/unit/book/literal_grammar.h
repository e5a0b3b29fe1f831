// Address literals by the productions of RFC 5321, 4.1.3.

#pragma once

#include <cstddef>
#include <string_view>

#include "unit/book/grammar.h"

namespace orvik::book::test {

class LiteralGrammar : private Grammar {
 public:
    // Without brackets.
    explicit LiteralGrammar(std::string_view text) : Grammar(text) {}

    [[nodiscard]] bool IsIpv4() const { return IsWhole(Ipv4(At(0))); }
    // "IPv6:", in any case
    [[nodiscard]] bool HasTag() const { return Tag().any(); }
    // IPv6-full / IPv6v4-full
    [[nodiscard]] bool IsFullIpv6() const {
        return IsWhole(Groups(Tag(), 8) | Ipv4(Letter(Groups(Tag(), 6), ':')));
    }
    // IPv6-comp with so many groups besides the "::", IPv6v4-comp with two less
    [[nodiscard]] bool IsShortIpv6(std::size_t groups) const {
        Places ends;
        for (std::size_t before = 0; before <= groups; ++before) {
            const Places gap = Letter(Letter(Groups(Tag(), before), ':'), ':');
            ends |= Groups(gap, groups - before);
            if (before + 2 == groups) {
                ends |= Ipv4(gap);
            } else if (before + 2 < groups) {
                ends |= Ipv4(Letter(Groups(gap, groups - 2 - before), ':'));
            }
        }
        return IsWhole(ends);
    }

 private:
    [[nodiscard]] Places Digit(const Places& from) const { return Range(from, '0', '9'); }
    // 1*3DIGIT, of at most 255
    [[nodiscard]] Places Snum(const Places& from) const {
        const Places two = Letter(from, '2');
        return Digit(from) | Digit(Digit(from)) | Digit(Digit(OneOf(from, "01"))) |
               Digit(Range(two, '0', '4')) | Range(Letter(two, '5'), '0', '5');
    }
    [[nodiscard]] Places Ipv4(const Places& from) const {
        Places ends = Snum(from);
        for (int part = 1; part < 4; ++part) {
            ends = Snum(Letter(ends, '.'));
        }
        return ends;
    }
    [[nodiscard]] Places Tag() const {
        Places ends = At(0);
        for (const char* const letter : {"Ii", "Pp", "Vv", "6", ":"}) {
            ends = OneOf(ends, letter);
        }
        return ends;
    }
    // 1*4HEXDIG
    [[nodiscard]] Places Hex(const Places& from) const {
        Places ends;
        Places digits = from;
        for (int count = 0; count < 4; ++count) {
            digits = Digit(digits) | Range(digits, 'A', 'F') | Range(digits, 'a', 'f');
            ends |= digits;
        }
        return ends;
    }
    // So many groups with ":" between them.
    [[nodiscard]] Places Groups(const Places& from, std::size_t count) const {
        Places ends = from;
        for (std::size_t i = 0; i < count; ++i) {
            ends = Hex(i == 0 ? ends : Letter(ends, ':'));
        }
        return ends;
    }
};

}  // namespace orvik::book::test
