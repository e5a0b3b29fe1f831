#include "app/byte_finder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace orvik {
namespace {

// Goes from one comma to the next, or a little further, as find does.
void CompareWithFind(const std::string& text, std::size_t skip) {
    ByteFinder commas(text, ',');
    for (std::size_t start = 0; start < text.size() + 2;) {
        const std::size_t found = text.find(',', start);
        ASSERT_EQ(commas.Next(start), found) << text << ", from " << start;
        start = found == std::string::npos ? text.size() + 2 : found + skip;
    }
}

TEST(ByteFinder, TextsOfEachLength_AreSearchedAsByFind) {
    std::mt19937 random(4711);  // NOLINT: the same texts each time
    for (std::size_t length = 0; length < 200; ++length) {
        for (const unsigned rarity : {1U, 3U, 40U, 1000U}) {
            std::string text;
            for (std::size_t i = 0; i < length; ++i) {
                text += random() % rarity == 0 ? ',' : '\0';
            }
            CompareWithFind(text, 1);
            CompareWithFind(text, 70);
        }
    }
}

TEST(ByteFinder, NextStart_MayStandBeforeWhatWasFound) {
    const std::string text = std::string(100, 'a') + "," + std::string(100, 'a') + ",";
    ByteFinder commas(text, ',');
    for (const std::size_t start : {0U, 3U, 70U, 100U}) {
        EXPECT_EQ(commas.Next(start), 100U);
    }
    EXPECT_EQ(commas.Next(101), 201U);
    EXPECT_EQ(commas.Next(150), 201U);
}

TEST(ByteFinder, PlaceThatIsAskedForAgain_IsFoundAgain) {
    ByteFinder commas("a,b,", ',');
    EXPECT_EQ(commas.Next(0), 1U);
    EXPECT_EQ(commas.Next(1), 1U);
    EXPECT_EQ(commas.Next(2), 3U);
    EXPECT_EQ(commas.Next(4), std::string_view::npos);
    EXPECT_EQ(commas.Next(9), std::string_view::npos);
}

TEST(ByteFinder, FillingBehindTheText_IsNotFound) {
    ByteFinder zeros("abc", '\0');
    EXPECT_EQ(zeros.Next(0), std::string_view::npos);
}

}  // namespace
}  // namespace orvik
