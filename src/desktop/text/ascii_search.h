// Searching ASCII letters of any case in long texts, many bytes at a time.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "app/byte_lanes.h"

namespace orvik {

// The first byte, and the first letter, outside ASCII.
inline constexpr unsigned char kFirstForeign = 0x80;

[[nodiscard]] constexpr bool IsForeign(char byte) {
    return static_cast<unsigned char>(byte) >= kFirstForeign;
}

class AsciiSearch {
 public:
    // ASCII in lower case, at least one letter.
    explicit AsciiSearch(std::string letters);

    [[nodiscard]] std::size_t size() const { return letters_.size(); }

    // The first place, from one on, where the letters stand, whatever their case, or where a byte
    // outside ASCII stands; the end of the text if there is neither.
    //   "ok", "no OK", 0 -> 3;  "ok", "J\xFCrg ok", 0 -> 1
    // Time: linear, but for texts that have many beginnings of the letters.
    [[nodiscard]] std::size_t next(std::string_view text, std::size_t from) const;

 private:
    [[nodiscard]] bool isAt(const char* place) const;

    std::string letters_;
    RarePlaces places_;
};

}  // namespace orvik
