#include "app/byte_finder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace orvik {
namespace {

// Goes from one of the bytes to the next.
template <char... kWanted>
void CompareWithFind(const std::string& text, std::size_t start) {
    const std::string wanted = {kWanted...};
    ByteFinder<kWanted...> bytes(text, start);
    std::size_t found = text.find_first_of(wanted, start);
    for (; found != std::string::npos; found = text.find_first_of(wanted, found + 1)) {
        ASSERT_EQ(bytes.Next(), found) << text << ", from " << start;
    }
    ASSERT_EQ(bytes.Next(), std::string_view::npos) << text << ", from " << start;
    ASSERT_EQ(bytes.Next(), std::string_view::npos) << text << ", from " << start;
}

TEST(ByteFinder, TextsOfEachLength_AreSearchedAsByFind) {
    std::mt19937 random(4711);  // NOLINT: the same texts each time
    for (std::size_t length = 0; length < 200; ++length) {
        for (const unsigned rarity : {3U, 4U, 40U, 1000U}) {
            std::string text;
            for (std::size_t i = 0; i < length; ++i) {
                constexpr std::string_view kBytes(",\r\n\0\xFF", 5);
                const std::size_t byte = random() % rarity;
                text += byte < kBytes.size() ? kBytes[byte] : 'a';
            }
            for (const std::size_t start : {std::size_t{0}, std::size_t{1}, length / 2, length}) {
                CompareWithFind<','>(text, start);
                CompareWithFind<',', '\r', '\n'>(text, start);
                CompareWithFind<'\xFF', '\0'>(text, start);
            }
        }
    }
}

TEST(ByteFinder, FillingBehindTheText_IsNotFound) {
    ByteFinder<'\0'> zeros("abc");
    EXPECT_EQ(zeros.Next(), std::string_view::npos);
}

TEST(ByteFinder, StartBehindTheText_FindsNothing) {
    ByteFinder<'c'> bytes("abc", 4);
    EXPECT_EQ(bytes.Next(), std::string_view::npos);
}

}  // namespace
}  // namespace orvik
