#include "book/source.h"

#include <string>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

using namespace std::string_literals;

// ASCII text in two or four bytes a letter.
std::string Wide(std::string_view text, std::size_t bytes, bool big) {
    std::string wide;
    for (const char c : text) {
        std::string letter(bytes, '\0');
        letter[big ? bytes - 1 : 0] = c;
        wide += letter;
    }
    return wide;
}

TEST(Source, TakesTheMarkAway) {
    const Source marked("file", "\xEF\xBB\xBFtext");
    EXPECT_EQ(marked.Text(), "text");
    EXPECT_EQ(marked.Bytes(), "\xEF\xBB\xBFtext");
    EXPECT_TRUE(marked.HasMark());
    EXPECT_EQ(marked.OffsetOf(marked.Text().data() + 2), 2U);
    const Source plain("file", "J\xF6rg");
    EXPECT_EQ(plain.Text().data(), plain.Bytes().data());
    EXPECT_FALSE(plain.HasMark());
}

TEST(Source, ReadsWideTextWithAndWithoutItsMark) {
    const std::string text = "dn: cn=Al\r\ncn: Al\r\n";
    const struct {
        std::string Mark;
        std::size_t Bytes;
        bool Big;
        WideForm Form;
    } rows[] = {
        {"\xFF\xFE", 2, false, WideForm::Utf16Le},
        {"\xFE\xFF", 2, true, WideForm::Utf16Be},
        {"", 2, false, WideForm::Utf16Le},
        {"", 2, true, WideForm::Utf16Be},
        {"\xFF\xFE\0\0"s, 4, false, WideForm::Utf32Le},
        {"\0\0\xFE\xFF"s, 4, true, WideForm::Utf32Be},
    };
    for (const auto& row : rows) {
        const Source source("file", row.Mark + Wide(text, row.Bytes, row.Big));
        EXPECT_EQ(source.Wide(), row.Form);
        EXPECT_EQ(source.Text(), text) << NameOf(row.Form);
        EXPECT_EQ(source.BadLetters(), 0U);
    }
}

TEST(Source, TellsHalfLettersAndStrayBytes) {
    const Source cut("file",
                     "\xFF\xFE"
                     "a\0b\0c"s);
    EXPECT_EQ(cut.Text(), "ab\xEF\xBF\xBD");
    EXPECT_EQ(cut.BadLetters(), 1U);
    const Source half("file",
                      "\xFF\xFE"
                      "a\0\x00\xD8"
                      "b\0"s);
    EXPECT_EQ(half.Text(),
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(half.BadLetters(), 1U);
}

TEST(Source, TakesAwayWhatStandsWhereFilesWereJoined) {
    const Source joined(
        "file", "\xEF\xBB\xBF\xEF\xBB\xBFone\r\n\x1A\xEF\xBB\xBFtwo\r\x1A\nx\x1Ay\n\x1A\x1A");
    EXPECT_EQ(joined.Text(), "one\r\ntwo\r\nx\x1Ay\n");
    EXPECT_EQ(joined.OffsetOf(joined.Text().data() + 5), 5U);
    const Source end("file", "one\x1A");
    EXPECT_EQ(end.Text(), "one");
    const Source inside("file",
                        "a\xEF\xBB\xBF"
                        "b\n");
    EXPECT_EQ(inside.Text(),
              "a\xEF\xBB\xBF"
              "b\n");
    const Source wide("file",
                      "\xFF\xFE"
                      "a\0\n\0\xFF\xFE"
                      "b\0"s);
    EXPECT_EQ(wide.Text(), "a\nb");
    EXPECT_EQ(Source("file", "\x1A").Text(), "");
}

// n, c, e and 8 for a NUL, a CR, an escape and a byte that is no ASCII.
std::string SignsOf(const std::string& bytes) {
    const Source source("file", bytes);
    const SignsOfText& signs = source.Signs();
    return std::string(signs.Nul ? "n" : "") + (signs.Cr ? "c" : "") + (signs.Escape ? "e" : "") +
           (signs.NotAscii ? "8" : "");
}

TEST(Source, FindsEachSignWhereverItStands) {
    for (const std::size_t length : {1U, 63U, 64U, 65U, 127U, 128U, 129U, 200U}) {
        const std::string plain(length, 'a');
        EXPECT_EQ(SignsOf(plain), "") << length;
        for (std::size_t at = 0; at < length; ++at) {
            std::string text = plain;
            const auto with = [&](char c) {
                text[at] = c;
                return SignsOf(text);
            };
            ASSERT_EQ(with('\0'), "n") << length << " " << at;
            ASSERT_EQ(with('\r'), "c") << length << " " << at;
            ASSERT_EQ(with('\x1B'), "e") << length << " " << at;
            ASSERT_EQ(with('\x80'), "8") << length << " " << at;
            ASSERT_EQ(with('\xFF'), "8") << length << " " << at;
        }
    }
}

TEST(Source, HasOnlyTheSignsThatAreThere) {
    EXPECT_EQ(SignsOf(""), "");
    std::string others;
    for (char c = 1; c < '\x7F'; ++c) {
        others += c == '\r' || c == '\x1B' ? '\n' : c;
    }
    EXPECT_EQ(SignsOf(others + '\x7F'), "");
    // From both sides of where the parts meet.
    const std::string part(62, 'a');
    EXPECT_EQ(SignsOf(part + "\r\x1B\xC3" + part + "\0"s), "nce8");
}

// Signs are those of the text, which is not always what the bytes are.
TEST(Source, HasNoSignsOfItsMarkAndOfWideBytes) {
    EXPECT_EQ(SignsOf("\xEF\xBB\xBFtext"), "");
    EXPECT_EQ(SignsOf("\xFF\xFE" + Wide("dn: cn=Al\n", 2, false)), "");
    EXPECT_EQ(SignsOf("\xFF\xFE" + Wide("dn: cn=Al\r\n", 2, false) + "\xE4\0"s), "c8");
}

TEST(WideFormOf, TellsByTheSeparatorsWhereLettersAreNotLatin) {
    std::string big;
    for (int i = 0; i < 30; ++i) {
        big += "\x30\x42\x30\x44\x30\x46\x30\x48\0,"s;
    }
    EXPECT_EQ(WideFormOf(big), WideForm::Utf16Be);
    EXPECT_EQ(WideFormOf(std::string(100, '\0')), WideForm::None);
    EXPECT_EQ(WideFormOf("plain\ntext\n"), WideForm::None);
    EXPECT_EQ(WideFormOf("plain text:\0 with some:\0 NULs:\0 in between\n"s), WideForm::None);
    EXPECT_EQ(WideFormOf(""), WideForm::None);
}

}  // namespace
}  // namespace orvik::book
