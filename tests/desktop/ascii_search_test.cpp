#include "desktop/text/ascii_search.h"

#include <cctype>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace orvik {
namespace {

TEST(AsciiSearch, FindsTheLettersWhateverTheirCase) {
    const AsciiSearch search("ok");
    EXPECT_EQ(search.size(), 2U);
    EXPECT_EQ(search.next("no OK", 0), 3U);
    EXPECT_EQ(search.next("no OK", 4), 5U);
    EXPECT_EQ(search.next("J\xFCrg ok", 0), 1U);
    EXPECT_EQ(search.next("J\xFCrg ok", 2), 5U);
    EXPECT_EQ(search.next("o", 0), 1U);
    EXPECT_EQ(search.next("", 0), 0U);
}

TEST(AsciiSearch, OnlyLettersHaveACase) {
    // They differ in the same bit as a letter and its capital.
    EXPECT_EQ(AsciiSearch("{").next("[ {", 0), 2U);
    EXPECT_EQ(AsciiSearch("[").next("{ [", 0), 2U);
    EXPECT_EQ(AsciiSearch("`@").next("@` @@ `@", 0), 6U);
    EXPECT_EQ(AsciiSearch(std::string(1, '\0')).next(std::string("a \0", 3), 0), 2U);
}

// The slow way, place by place.
std::size_t LiteralNext(const std::string& letters, const std::string& text, std::size_t from) {
    for (; from < text.size(); ++from) {
        if (static_cast<unsigned char>(text[from]) >= 0x80) {
            return from;
        }
        std::string there = text.substr(from, letters.size());
        for (char& letter : there) {
            letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
        }
        if (there == letters) {
            return from;
        }
    }
    return from;
}

TEST(AsciiSearch, FindsWhatALiteralSearchFinds) {
    constexpr std::string_view kLetters = "abAB@`{[\r\n";
    std::mt19937 random(7);
    const auto make = [&](std::size_t length, std::string_view from) {
        std::string made(length, ' ');
        for (char& letter : made) {
            letter = from[random() % from.size()];
        }
        return made;
    };
    for (int round = 0; round < 20000; ++round) {
        const std::string letters = make(1 + random() % 4, "ab@`{[\n");
        std::string text = make(random() % 100, round % 2 == 0 ? "aAb" : kLetters);
        if (!text.empty() && round % 3 == 0) {
            text[random() % text.size()] = static_cast<char>(random() & 0xFFU);
        }
        const std::size_t from = random() % (text.size() + 1);
        ASSERT_EQ(AsciiSearch(letters).next(text, from), LiteralNext(letters, text, from))
            << testing::PrintToString(letters) << " in " << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace orvik
