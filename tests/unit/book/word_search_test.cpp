#include "book/word_search.h"

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

TEST(WordSearch, FindsAWordAtEachPlace) {
    for (const std::string_view word :
         {"a", "ab", "zq", "\xC3\xA9", "mill", "a long word of 22 bytes"}) {
        const WordSearch search{std::string(word)};
        for (std::size_t length = 0; length < 100; ++length) {
            std::string text(length, '-');
            EXPECT_FALSE(search.IsIn(text)) << word << " in " << length;
            for (std::size_t at = 0; at + word.size() <= length; ++at) {
                text.assign(length, '-').replace(at, word.size(), word);
                EXPECT_TRUE(search.IsIn(text)) << word << " at " << at << " of " << length;
            }
        }
    }
}

TEST(WordSearch, TakesNothingForAWordThatIsNone) {
    const WordSearch search("miller");
    EXPECT_FALSE(search.IsIn("mille, and behind it the letter r, far from its end"));
    EXPECT_FALSE(search.IsIn("millemillemillemillemillemillemillemillemille"));
    // The end is the text's, not that of the memory.
    EXPECT_FALSE(search.IsIn(std::string_view("one two three four five six miller").substr(0, 33)));
}

// Texts of few letters have many beginnings of a word.
TEST(WordSearch, FindsWhatTheLibraryFinds) {
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        const auto some = [&random](std::size_t most) {
            std::string text(random() % most, ' ');
            for (char& one : text) {
                one = static_cast<char>('a' + random() % 2);
            }
            return text;
        };
        const std::string word = some(7) + 'a';
        const std::string text = some(80);
        EXPECT_EQ(WordSearch(word).IsIn(text), text.find(word) != std::string::npos)
            << word << " in " << text;
    }
}

}  // namespace
}  // namespace orvik::book
