// Large blocks of memory are freed and handed out again by operator new of the programs.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace orvik {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

// A text that shows when another one is written over it.
std::string Filled(std::size_t size, char letter) {
    std::string text(size, letter);
    text.back() = '.';
    return text;
}

void ExpectFilled(const std::string& text, char letter) {
    EXPECT_TRUE(text == Filled(text.size(), letter));
}

TEST(SystemMemory, LargeBlocks_StayApartAsOthersComeAndGo) {
    const std::vector<std::size_t> sizes = {
        8 * kMegabyte, 4 * kMegabyte, 4 * kMegabyte - 1, 30 * kMegabyte, 5 * kMegabyte + 1, 100};
    std::vector<std::pair<std::string, char>> held;
    for (std::size_t i = 0; i < 60; ++i) {
        const auto letter = static_cast<char>('a' + i % 26);
        held.emplace_back(Filled(sizes[i % sizes.size()], letter), letter);
        if (held.size() > 4) {
            const auto gone = held.begin() + static_cast<std::ptrdiff_t>(i * 7 % held.size());
            ExpectFilled(gone->first, gone->second);
            held.erase(gone);
        }
    }
    for (const auto& [text, letter] : held) {
        ExpectFilled(text, letter);
    }
}

TEST(SystemMemory, ThreadsThatFreeLargeBlocksAtOnce_GetBlocksOfTheirOwn) {
    const auto work = [](char letter) {
        for (std::size_t i = 0; i < 20; ++i) {
            const std::string one = Filled((4 + i % 3) * kMegabyte, letter);
            const std::string other = Filled((9 - i % 4) * kMegabyte, letter);
            ExpectFilled(one, letter);
            ExpectFilled(other, letter);
        }
    };
    std::thread first(work, 'a');
    std::thread second(work, 'b');
    first.join();
    second.join();
}

}  // namespace
}  // namespace orvik
