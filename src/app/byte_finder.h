// Finds the places of one byte in a text, one behind the other. Where they are near to each other,
// as commas are, a call for each and a loop of an unknown length cost more than all of the bytes.

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace orvik {

class ByteFinder {
 public:
    // text must outlive the finder.
    ByteFinder(std::string_view text, char wanted) : text_(text), wanted_(wanted) {}

    // Where the next one stands at or behind start, counted from 0; npos where there is none. start
    // is never less than at the call before.
    std::size_t Next(std::size_t start) {
        if (!is_marked_ || start >= block_ + kBlock) {
            if (!Mark(start)) {
                return std::string_view::npos;
            }
        } else if (start > block_) {
            marks_ &= ~std::uint64_t{0} << (start - block_);
        }
        while (marks_ == 0) {
            if (!Mark(block_ + kBlock)) {
                return std::string_view::npos;
            }
        }
        return block_ + static_cast<std::size_t>(std::countr_zero(marks_));
    }

 private:
    static constexpr std::size_t kBlock = 64;
    // Compilers have it for all processors, and most of these do it at once.
    using Lanes [[gnu::vector_size(16)]] = unsigned char;

    // Marks what is wanted of the block at start; false if the text ends before it.
    bool Mark(std::size_t start) {
        if (start >= text_.size()) {
            return false;
        }
        block_ = start;
        is_marked_ = true;
        const std::string_view block = text_.substr(start, kBlock);
        if (block.size() == kBlock) {
            marks_ = MarksIn(block.data());
        } else {
            std::array<char, kBlock> last{};
            std::copy(block.begin(), block.end(), last.begin());
            marks_ = MarksIn(last.data()) & ~(~std::uint64_t{0} << block.size());
        }
        return true;
    }

    // Bit i for byte i of a whole block.
    [[nodiscard]] std::uint64_t MarksIn(const char* bytes) const {
        // The sum of eight lanes, each of which holds a bit of its own, is their bits.
        constexpr std::uint64_t kSum = 0x0101010101010101;
        constexpr int kHighest = 56;
        const Lanes wanted = Lanes{} + static_cast<unsigned char>(wanted_);
        const Lanes bits = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
        std::uint64_t marks = 0;
        for (std::size_t i = 0; i < kBlock; i += sizeof(Lanes)) {
            Lanes lanes;
            std::memcpy(&lanes, bytes + i, sizeof lanes);
            lanes = (lanes == wanted) & bits;
            std::array<std::uint64_t, 2> halves{};
            std::memcpy(halves.data(), &lanes, sizeof lanes);
            marks |= ((halves[0] * kSum) >> kHighest | (halves[1] * kSum) >> kHighest << 8) << i;
        }
        return marks;
    }

    std::string_view text_;
    char wanted_;
    std::size_t block_ = 0;
    bool is_marked_ = false;
    std::uint64_t marks_ = 0;
};

}  // namespace orvik
