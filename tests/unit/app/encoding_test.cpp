#include "app/encoding.h"

#include <string>

#include <gtest/gtest.h>

namespace orvik {
namespace {

using namespace std::string_literals;

TEST(EncodingOf, DecidesForTheWholeText) {
    const struct {
        std::string Bytes;
        Encoding Expected;
    } rows[] = {
        {"", Encoding::Utf8},
        {"plain", Encoding::Utf8},
        {"J\xC3\xBCrgen", Encoding::Utf8},
        {"J\xFCrgen", Encoding::Windows1252},
        {"J\xC3\xBCrgen and J\xFCrgen", Encoding::Windows1252},
        {"a\0b"s, Encoding::Utf8},
        {"\xEF\xBB\xBF"
         "byte order mark",
         Encoding::Utf8},
        {"\xF0\x9F\x98\x80", Encoding::Utf8},
        {"cut off \xC3", Encoding::Windows1252},
        {"cut off \xE2\x82", Encoding::Windows1252},
        {"\xC0\x80", Encoding::Windows1252},          // longer than it need be
        {"\xE0\x9F\xBF", Encoding::Windows1252},      // the same
        {"\xF0\x8F\xBF\xBF", Encoding::Windows1252},  // the same
        {"\xED\xA0\x80", Encoding::Windows1252},      // half a pair
        {"\xF4\x90\x80\x80", Encoding::Windows1252},  // beyond the last letter
        {"\xE2\x80\xA8", Encoding::Windows1252},      // U+2028
        {"\xE2\x80\xA9", Encoding::Windows1252},      // U+2029
        {"\xE2\x90\x8A", Encoding::Windows1252},      // U+240A
        {"\xEF\xB7\x90", Encoding::Windows1252},      // U+FDD0
        {"\xEF\xB7\xAF", Encoding::Windows1252},      // U+FDEF
        {"\xEF\xBF\xBE", Encoding::Windows1252},      // U+FFFE
        {"\xEF\xBF\xBF", Encoding::Windows1252},      // U+FFFF
        {"\xF0\x9F\xBF\xBE", Encoding::Windows1252},  // U+1FFFE
        {"\xF4\x8F\xBF\xBF", Encoding::Windows1252},  // U+10FFFF, the last of them
        {"\xEF\xB7\x8F", Encoding::Utf8},             // U+FDCF, right before them
        {"\xEF\xB7\xB0", Encoding::Utf8},             // U+FDF0, right behind them
        {"\xEF\xBF\xBC", Encoding::Utf8},             // U+FFFC
        {"J\xC3\xBCrgen and \xEF\xBF\xBE", Encoding::Windows1252},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(EncodingOf(row.Bytes), row.Expected) << testing::PrintToString(row.Bytes);
    }
}

TEST(AsciiLength, EndsAtTheFirstOtherByte) {
    EXPECT_EQ(AsciiLength(""), 0U);
    EXPECT_EQ(AsciiLength("J\xC3\xBCrgen"), 1U);
    for (std::size_t length = 0; length < 100; ++length) {
        std::string text(length, '\x7F');
        EXPECT_EQ(AsciiLength(text), length);
        text.append("\x80").append(50, 'a');
        EXPECT_EQ(AsciiLength(text), length);
        EXPECT_EQ(EncodingOf(text), Encoding::Windows1252);
        text.back() = '\xFF';
        EXPECT_EQ(AsciiLength(text), length);
    }
}

TEST(FirstLetter, TellsItsNumberAndItsBytes) {
    const struct {
        std::string Bytes;
        char32_t Code;
        std::size_t Length;
    } rows[] = {
        {"ab", U'a', 1},
        {"\0b"s, 0, 1},
        {"\xC3\xBC"
         "b",
         0xFC,
         2},
        {"\xE2\x82\xAC\xC3", 0x20AC, 3},
        {"\xF0\x9F\x98\x80", 0x1F600, 4},
        {"\xEF\xBF\xBF", 0xFFFF, 3},  // a noncharacter is a sequence, too
        {"\xFC", 0, 0},
        {"\xC3", 0, 0},
        {"\xC3\xC3\xBC", 0, 0},
    };
    for (const auto& row : rows) {
        const Utf8Letter letter = FirstLetter(row.Bytes);
        EXPECT_EQ(letter.Code, row.Code) << testing::PrintToString(row.Bytes);
        EXPECT_EQ(letter.Length, row.Length) << testing::PrintToString(row.Bytes);
    }
}

}  // namespace
}  // namespace orvik
