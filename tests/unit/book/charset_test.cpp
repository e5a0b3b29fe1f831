#include "book/charset.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "book/charset_converter.h"
#include "book/charset_guess.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

std::string Converted(std::string_view charset, std::string_view bytes) {
    auto converter = CharsetConverter::Named(charset);
    std::string text;
    return converter && converter->Append(bytes, text) == 0 ? text : "none";
}

TEST(CharsetConverter, ReadsTheSetsThatBooksHave) {
    EXPECT_EQ(Converted("windows-1252", "J\xF6rg \x80"), "J\xC3\xB6rg \xE2\x82\xAC");
    EXPECT_EQ(Converted("latin1", "J\xF6rg"), "J\xC3\xB6rg");
    EXPECT_EQ(Converted("macintosh", "J\x9Arg"), "J\xC3\xB6rg");
    EXPECT_EQ(Converted("cp850", "J\x94rg"), "J\xC3\xB6rg");
    EXPECT_EQ(Converted("KOI8-R", "\xEF\xCC\xD1"), "\xD0\x9E\xD0\xBB\xD1\x8F");
    EXPECT_EQ(Converted("Shift_JIS", "\x82\xA0"), "\xE3\x81\x82");
    EXPECT_EQ(Converted("ISO-2022-JP", "\x1B$B$\"\x1B(B"), "\xE3\x81\x82");
    // No letter, but nothing is lost.
    EXPECT_EQ(Converted("windows-1252", "\x81"), "\xC2\x81");
}

TEST(CharsetConverter, RefusesWhatNobodyKnowsAndWhatWouldMisread) {
    for (const std::string_view name : {"",
                                        "none",
                                        "UTF-7",
                                        "IMAP-mailbox-name",
                                        "SCSU",
                                        "BOCU-1",
                                        "HZ-GB-2312",
                                        "ibm-037",
                                        "utf-8,version=1",
                                        "ebcdic-de"}) {
        EXPECT_FALSE(CharsetConverter::Named(name)) << name;
    }
    EXPECT_FALSE(CharsetConverter::Named(std::string(1000, 'a')));
}

TEST(CharsetConverter, CountsWhatIsNoLetterAndTakesAnyLength) {
    auto utf8 = CharsetConverter::Named("utf-8");
    ASSERT_TRUE(utf8);
    EXPECT_EQ(utf8->Name(), "UTF-8");
    std::string text;
    EXPECT_EQ(utf8->Append("a\xFF"
                           "b",
                           text),
              1U);
    EXPECT_EQ(text,
              "a\xEF\xBF\xBD"
              "b");
    auto western = CharsetConverter::Named("windows-1252");
    ASSERT_TRUE(western);
    text.clear();
    EXPECT_EQ(western->Append(std::string(100000, '\xF6'), text), 0U);
    EXPECT_EQ(text.size(), 200000U);
    EXPECT_EQ(CountUtf8(text).Letters, 100000U);
}

TEST(GuessCharset, BelievesOnlySetsThatAreNotWestern) {
    EXPECT_EQ(GuessCharset("J\xF6rg M\xFCller Fran\xE7ois Zo\xEB \xC5ke \xD8rsted"), "");
    EXPECT_EQ(GuessCharset("\xEF\xCC"), "");
    const std::string russian =
        "\xE9\xD7\xC1\xCE \xF0\xC5\xD4\xD2\xCF\xD7 \xED\xC1\xD2\xC9\xD1 "
        "\xF3\xCD\xC9\xD2\xCE\xCF\xD7\xC1 \xE1\xCC\xC5\xCB\xD3\xC5\xCA";
    EXPECT_EQ(GuessCharset(russian), "KOI8-R");
}

TEST(LinesNotUtf8, LooksAtFoldedLettersAsAWhole) {
    EXPECT_EQ(LinesNotUtf8("a\nJ\xF6rg\nZo\xC3\xAB\ncut \xC3\n \xAB\n"), "J\xF6rg");
    EXPECT_EQ(LinesNotUtf8(std::string(1U << 20U, '\xFF')).size(), 256U * 1024);
}

std::string SentenceOf(const std::string& bytes, std::string_view asked = {}) {
    const Source source("file", bytes);
    Charset charset(source, asked);
    const std::array<std::string_view, 1> all = {source.Text()};
    if (charset.Judge(all, 1) == PieceCharset::Other) {
        charset.Example(bytes);
    }
    return charset.Sentence("card");
}

TEST(Charset, SaysWhatItTook) {
    EXPECT_EQ(SentenceOf("plain"), "ASCII");
    EXPECT_EQ(SentenceOf("Zo\xC3\xAB"), "UTF-8");
    EXPECT_EQ(SentenceOf("Zo\xC3\xAB and \xC3"), "UTF-8");
    EXPECT_EQ(SentenceOf("J\xF6rg"), "windows-1252 (assumed; e.g. \"J\xC3\xB6rg\")");
    EXPECT_EQ(SentenceOf("J\xF6rg", "ISO-8859-2"), "ISO-8859-2");
    EXPECT_EQ(SentenceOf("plain", "ISO-8859-2"), "ASCII");
    EXPECT_EQ(SentenceOf("\xFF\xFE"
                         "a"),
              "UTF-16LE");
    EXPECT_EQ(SentenceOf("\x1B$B$\"\x1B(B"), "ISO-2022-JP (guessed)");
}

TEST(Charset, CountsWhatRecordsAreCalled) {
    const Source source("file", "Zo\xC3\xAB J\xF6rg J\xF6");
    Charset charset(source, {});
    for (const std::string_view text : {"Zo\xC3\xAB", "J\xF6rg", "J\xF6"}) {
        charset.Judge({&text, 1}, 1);
    }
    const auto counts = [&charset](std::string_view noun) {
        const std::string all = charset.Sentence(noun);
        return all.substr(0, all.find(')')) + all.substr(all.rfind('('));
    };
    EXPECT_EQ(counts("entry"), "UTF-8 (1 entry(2 entries, lines 1, 1)");
    EXPECT_EQ(counts("alias"), "UTF-8 (1 alias(2 aliases, lines 1, 1)");
    EXPECT_EQ(counts("card"), "UTF-8 (1 card(2 cards, lines 1, 1)");
}

TEST(Charset, TakesLettersOfOldMacsWhereLinesEndWithCr) {
    EXPECT_EQ(SentenceOf("J\x9Arg\r"), "macintosh (assumed; e.g. \"J\xC3\xB6rg\r\")");
    EXPECT_EQ(SentenceOf("J\xF6rg\r"), "windows-1252 (assumed; e.g. \"J\xC3\xB6rg\r\")");
}

TEST(Charset, NamesAnotherSetThatReadsLettersToo) {
    EXPECT_EQ(SentenceOf("\x8A\x9A"),
              "windows-1252 (assumed; e.g. \"\xC5\xA0\xC5\xA1\"; or macintosh: "
              "\"\xC3\xA4\xC3\xB6\")");
}

TEST(Charset, ReadsTextInTheSetThatItNames) {
    const Source source("file", "plain");
    Charset charset(source, {});
    Arena texts;
    std::size_t bad = 0;
    EXPECT_EQ(charset.DecodeAs("J\xF6rg", "iso-8859-1", texts, bad), "J\xC3\xB6rg");
    EXPECT_EQ(charset.DecodeAs("J\xF6rg", "none", texts, bad), std::nullopt);
    EXPECT_EQ(bad, 0U);
    EXPECT_EQ(charset.DecodeAs("J\xF6rg", "utf-8", texts, bad), "J\xEF\xBF\xBDrg");
    EXPECT_EQ(bad, 1U);
}

TEST(AppendUtf8, PutsOneSignForEachRunOfBadBytes) {
    std::string text;
    EXPECT_EQ(AppendUtf8("a\xFF\xFE"
                         "b\xC3\xAB\xE2\x82",
                         text),
              2U);
    EXPECT_EQ(text,
              "a\xEF\xBF\xBD"
              "b\xC3\xAB\xEF\xBF\xBD");
    EXPECT_EQ(CountUtf8("12345678\xC3\xAB"
                        "12345678\xFF")
                  .Letters,
              1U);
    EXPECT_EQ(CountUtf8("12345678\xC3\xAB"
                        "12345678\xFF")
                  .Bad,
              1U);
}

TEST(WordsEncodedTwice, NamesUpToThreeOfThem) {
    const std::string umlaut = "\xC3\x83\xC2\xBC";
    EXPECT_EQ(WordsEncodedTwice("FN:M" + umlaut + "ller;" + umlaut + "x\nM" + umlaut + "ller"),
              "M" + umlaut + "ller, " + umlaut + "x");
    EXPECT_EQ(WordsEncodedTwice("a" + umlaut + " b" + umlaut + " c" + umlaut + " d" + umlaut),
              "a" + umlaut + ", b" + umlaut + ", c" + umlaut);
    EXPECT_EQ(WordsEncodedTwice("FN:" + umlaut), "");
    EXPECT_EQ(WordsEncodedTwice("FN:M\xC3\xBCller N\xC3\x83O N\xC3\x83O"), "");
    std::string others = umlaut + umlaut;
    for (int i = 0; i < 9; ++i) {
        others += "\xC3\xBC";
    }
    EXPECT_EQ(WordsEncodedTwice(others), "");
}

}  // namespace
}  // namespace orvik::book
