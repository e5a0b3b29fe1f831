// Looking at many bytes of a text at a time.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace orvik {

// Compilers have it for all processors, and most of these do it at once.
inline constexpr std::size_t kLanes = 16;
using Lanes [[gnu::vector_size(kLanes)]] = unsigned char;

inline Lanes LanesAt(const char* place) {
    Lanes lanes;
    std::memcpy(&lanes, place, sizeof lanes);
    return lanes;
}

inline Lanes LanesOf(unsigned char byte) {
    std::array<unsigned char, kLanes> all{};
    all.fill(byte);
    Lanes lanes;
    std::memcpy(&lanes, all.data(), sizeof lanes);
    return lanes;
}

// Whether a lane has its highest bit.
inline bool IsAnyMarked(Lanes lanes) {
    constexpr std::uint64_t kMarks = 0x8080808080808080;
    std::array<std::uint64_t, 2> halves{};
    std::memcpy(halves.data(), &lanes, sizeof lanes);
    return ((halves[0] | halves[1]) & kMarks) != 0;
}

// Two places in a word, which are looked at first: those of the letters that books have least of.
// They are one in a word of one letter.
struct RarePlaces {
    std::size_t First = 0;
    std::size_t Second = 0;
};

// The word is in lower case, and not empty.
inline RarePlaces RarePlacesOf(std::string_view word) {
    static constexpr std::string_view kCommonFirst = "eaoinrlstm.@dhcugpb kvfywj-0123456789zxq";
    const auto rarest_but = [word](std::size_t other) {
        std::size_t rarest = other == 0 ? 1 : 0;
        for (std::size_t i = 0; i < word.size(); ++i) {
            if (i != other && kCommonFirst.find(word[i]) > kCommonFirst.find(word[rarest])) {
                rarest = i;
            }
        }
        return rarest;
    };
    const std::size_t first = rarest_but(word.size());
    return {first, word.size() > 1 ? rarest_but(first) : first};
}

}  // namespace orvik
