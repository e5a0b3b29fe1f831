#include "book/address_literal.h"

#include <algorithm>
#include <cstddef>

#include "book/address_letters.h"
#include "book/field_names.h"

namespace orvik::book {
namespace {

bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

// How many letters of a kind a text begins with, most of them at most.
template <class Kind>
std::size_t CountOf(std::string_view text, std::size_t most, const Kind& is_one) {
    const std::string_view some = text.substr(0, most);
    return static_cast<std::size_t>(std::find_if_not(some.begin(), some.end(), is_one) -
                                    some.begin());
}

bool IsIpv4(std::string_view text) {
    for (int part = 0; part < 4; ++part) {
        if (part > 0) {
            if (!text.starts_with('.')) {
                return false;
            }
            text.remove_prefix(1);
        }
        const std::size_t digits = CountOf(text, 3, IsDigit);
        int value = 0;
        for (const char c : text.substr(0, digits)) {
            value = 10 * value + (c - '0');
        }
        if (digits == 0 || value > 255) {
            return false;
        }
        text.remove_prefix(digits);
    }
    return text.empty();
}

// Machine, OneGroup or NoIpAddress.
Flaw Ipv6Flaw(std::string_view text) {
    constexpr std::size_t kGroups = 8;
    std::size_t groups = 0;
    bool has_gap = false;
    for (bool first = true; first || !text.empty(); first = false) {
        if (text.starts_with("::")) {
            if (has_gap) {
                return Flaw::NoIpAddress;
            }
            has_gap = true;
            text.remove_prefix(2);
            if (text.empty()) {
                break;
            }
        } else if (!first) {
            if (!text.starts_with(':')) {
                return Flaw::NoIpAddress;
            }
            text.remove_prefix(1);
        }
        if (IsIpv4(text)) {
            groups += 2;
            break;
        }
        const std::size_t digits = CountOf(text, 4, IsHexDigit);
        if (digits == 0 || ++groups > kGroups) {
            return Flaw::NoIpAddress;
        }
        text.remove_prefix(digits);
    }
    if (!has_gap) {
        return groups == kGroups ? Flaw::Machine : Flaw::NoIpAddress;
    }
    // "::" stands for two groups at least; older programs wrote it for one, too.
    return groups < kGroups - 1    ? Flaw::Machine
           : groups == kGroups - 1 ? Flaw::OneGroup
                                   : Flaw::NoIpAddress;
}

}  // namespace

Flaw LiteralFlaw(std::string_view literal) {
    constexpr std::string_view kIpv6 = "IPv6:";
    if (StartsAsName(literal, kIpv6)) {
        return Ipv6Flaw(literal.substr(kIpv6.size()));
    }
    // Other tags may be registered one day; none is.
    return IsIpv4(literal) ? Flaw::Machine : Flaw::UnknownLiteral;
}

}  // namespace orvik::book
