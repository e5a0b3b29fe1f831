// Finds the places of some bytes in a text, one behind the other. Where they are near to each
// other, as commas are, a call for each and a loop of an unknown length cost more than all of the
// bytes.

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "app/byte_lanes.h"

namespace orvik {

template <char... kWanted>
class ByteFinder {
 public:
    // Begins at start, counted from 0. text must outlive the finder.
    explicit ByteFinder(std::string_view text, std::size_t start = 0)
        : text_(text), behind_(start) {}

    // Where the next one stands, counted from 0; npos where there is none. Each is found once.
    std::size_t Next() {
        while (marks_ == 0) {
            if (behind_ >= text_.size()) {
                return std::string_view::npos;
            }
            const std::string_view block = text_.substr(behind_, kBlock);
            marks_ = block.size() == kBlock ? MarksIn(block.data()) : MarksInLast(block);
            behind_ += kBlock;
        }
        const auto place = static_cast<std::size_t>(std::countr_zero(marks_));
        marks_ &= marks_ - 1;
        return behind_ - kBlock + place;
    }

 private:
    static constexpr std::size_t kBlock = 64;

    // Bit i for byte i of a whole block.
    [[nodiscard]] static std::uint64_t MarksIn(const char* bytes) {
        // The sum of eight lanes, each of which holds a bit of its own, is their bits.
        constexpr std::uint64_t kSum = 0x0101010101010101;
        constexpr int kHighest = 56;
        const Lanes bits = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
        std::uint64_t marks = 0;
        for (std::size_t i = 0; i < kBlock; i += sizeof(Lanes)) {
            Lanes lanes = LanesAt(bytes + i);
            lanes = ((lanes == Lanes{} + static_cast<unsigned char>(kWanted)) | ...) & bits;
            std::array<std::uint64_t, 2> halves{};
            std::memcpy(halves.data(), &lanes, sizeof lanes);
            marks |= ((halves[0] * kSum) >> kHighest | (halves[1] * kSum) >> kHighest << 8) << i;
        }
        return marks;
    }

    // The same for a shorter one. It is called once, so that what is called often stays short.
    [[nodiscard, gnu::noinline]] static std::uint64_t MarksInLast(std::string_view block) {
        std::array<char, kBlock> last{};
        std::copy(block.begin(), block.end(), last.begin());
        return MarksIn(last.data()) & ~(~std::uint64_t{0} << block.size());
    }

    std::string_view text_;
    std::size_t behind_;  // the block that is marked
    std::uint64_t marks_ = 0;
};

}  // namespace orvik
