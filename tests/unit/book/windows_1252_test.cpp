#include "book/windows_1252.h"

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

std::string Bytes(std::string_view text) {
    std::string bytes;
    Windows1252().Append(text, bytes);
    return bytes;
}

TEST(Windows1252, WritesItsLetters) {
    EXPECT_EQ(Bytes("Ada"), "Ada");
    EXPECT_EQ(Bytes("J\u00F6rg \u20AC \u0178 \u017E"), "J\xF6rg \x80 \x9F \x9E");
    EXPECT_TRUE(Windows1252().Has("J\u00F6rg \u20AC"));
}

TEST(Windows1252, ComposesLettersAndMarks) {
    EXPECT_EQ(Bytes("Jo\u0308rg"), "J\xF6rg");
    EXPECT_TRUE(Windows1252().Has("Jo\u0308rg"));
    EXPECT_FALSE(Windows1252().Has("x\u0308"));
}

TEST(Windows1252, AsksWhereALetterIsNone) {
    EXPECT_EQ(Bytes("\u0141\u00F3d\u017A"),
              "?\xF3"
              "d?");
    EXPECT_EQ(Bytes("a\U0001F600z"), "a?z");
    EXPECT_EQ(Bytes("a\xFFz"), "a?z");
    EXPECT_FALSE(Windows1252().Has("\u0141"));
    EXPECT_FALSE(Windows1252().Has("\uFFFD"));
    EXPECT_FALSE(Windows1252().Has("\xFF"));
}

}  // namespace
}  // namespace orvik::book
