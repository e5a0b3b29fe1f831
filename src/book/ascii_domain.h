// Domains with letters outside ASCII: what they are looked up as, by UTS 46.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvik::book {

// No longer domain has an ASCII form of 255 bytes, but for letters that nobody sees.
inline constexpr std::size_t kLongestDomainLookedUp = 1024;

struct AsciiDomain {
    std::string Text;           // the domain itself where it is ASCII; empty where it is refused
    bool IsRefused = false;     // letters that no domain may have, or not in this order
    bool IsMapped = false;      // letters that stand for others, capitals aside
    bool HasNoLetters = false;  // a label of ASCII that begins with xn-- but is no form of letters
};

// AsciiDomainOf: of a domain in UTF-8 of at most kLongestDomainLookedUp bytes, whose labels are not
// empty and whose ASCII is letters, digits, hyphens and dots. Errors: std::bad_alloc.
//   "b\xC3\xBC" "cher.example" -> "xn--bcher-kva.example"
[[nodiscard]] AsciiDomain AsciiDomainOf(std::string_view domain);

}  // namespace orvik::book
