// An address inside of a line: where it begins and ends, and whether it is one.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvik::book {

enum class TokenKind : std::uint8_t {
    None,
    Address,
    Id,
    // Alone in brackets, and of the shape of an identifier: one, unless a name stands before it.
    IdByShape
};

struct AddressToken {
    TokenKind Kind = TokenKind::None;
    std::string_view Text;
    std::size_t Begin = 0;  // in the line
};

// TokenAt: what stands around an @ of a line in UTF-8. No more than what an address may have is
// looked at.
//   "see al@example.org." at 6 -> "al@example.org"
[[nodiscard]] AddressToken TokenAt(std::string_view line, std::size_t at);

// LooksLikeId: whether an address has the shape of what programs make to number messages.
//   "20240101120000.4711AB@example.org" -> true;  "ada1815@example.org" -> false
[[nodiscard]] bool LooksLikeId(std::string_view name, std::string_view domain);

}  // namespace orvik::book
