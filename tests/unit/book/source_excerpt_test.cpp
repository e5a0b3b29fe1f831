#include "book/source_excerpt.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

// "12:text|" for each line, "..." for what is cut.
std::string LinesOf(const Book& book, const ExcerptPlace& place, const std::string& other = {}) {
    RecordOrigins records(book.Contacts);
    records.Grow();
    const Excerpt excerpt = ExcerptOf(book, records, place, other);
    std::string text;
    for (const ExcerptLine& one : excerpt.Lines) {
        text += std::to_string(one.Number) + ":" + one.Text + (one.IsCut ? "..." : "") + "|";
    }
    return text + (excerpt.IsCut ? "..." : "");
}

constexpr const char* kThree =
    "nonsense\n\ndn: cn=Al\ncn: Al\n\ndn: cn=Bo\ncn: Bo\n\ndn: cn=Cy\ncn: Cy\n";

TEST(SourceExcerptTest, LinesAroundAPlace) {
    const ReadBook read(ReadLdif, kThree);
    EXPECT_EQ(LinesOf(read.book, {0, 6, 2, 0}), "6:dn: cn=Bo|7:cn: Bo|");
    EXPECT_EQ(LinesOf(read.book, {0, 6, 1, 1}), "5:|6:dn: cn=Bo|7:cn: Bo|");
    EXPECT_EQ(LinesOf(read.book, {0, 1, 1, 2}), "1:nonsense|2:|3:dn: cn=Al|");
    EXPECT_EQ(LinesOf(read.book, {0, 10, 1, 9}),
              "1:nonsense|2:|3:dn: cn=Al|4:cn: Al|5:|6:dn: cn=Bo|7:cn: Bo|8:|9:dn: cn=Cy|"
              "10:cn: Cy|");
    EXPECT_EQ(LinesOf(read.book, {0, 40, 1, 1}), "");
    EXPECT_EQ(LinesOf(read.book, {0, 10, 0xFFFFFFFFU, 0}), "10:cn: Cy|");
}

TEST(SourceExcerptTest, EachLineEndCountsAsForTheReaders) {
    for (const std::string end : {"\r\n", "\r", "\r\r\n"}) {
        std::string text = kThree;
        for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) {
            text.replace(at, 1, end);
            at += end.size();
        }
        const ReadBook read(ReadLdif, text);
        EXPECT_EQ(LinesOf(read.book, {0, 9, 1, 1}), "8:|9:dn: cn=Cy|10:cn: Cy|");
    }
}

TEST(SourceExcerptTest, InTheSetInWhichItWasRead) {
    const ReadBook read(ReadLdif,
                        "dn: cn=J\xF6rg\ncn: J\xF6rg\n\ndn: cn=Zo\xC3\xAB\ncn: Zo\xC3\xAB\nsn: "
                        "\xFF\n\n\xE9t\xE9\n");
    EXPECT_EQ(LinesOf(read.book, {0, 1, 8, 0}, "windows-1252"),
              "1:dn: cn=J\xC3\xB6rg|2:cn: J\xC3\xB6rg|3:|4:dn: cn=Zo\xC3\xAB|5:cn: Zo\xC3\xAB|"
              "6:sn: \xEF\xBF\xBD|7:|8:\xC3\xA9t\xC3\xA9|");
    // Without a set what is no UTF-8 is no letter.
    EXPECT_EQ(LinesOf(read.book, {0, 8, 1, 0}), "8:\xEF\xBF\xBDt\xEF\xBF\xBD|");
}

TEST(SourceExcerptTest, LongLinesAndManyLinesAreCut) {
    std::string text = "dn: cn=Al\ncn: Al\ndescription: ";
    for (int i = 0; i < 3000; ++i) {
        text += "\xC3\xB6";
    }
    text += "\n";
    for (int i = 0; i < 600; ++i) {
        text += "mail: a@b\n";
    }
    const ReadBook read(ReadLdif, text);
    const std::string shown = LinesOf(read.book, {0, 3, 1, 0});
    EXPECT_LT(shown.size(), 2100U);
    EXPECT_TRUE(shown.ends_with("...|")) << shown;
    const std::string all = LinesOf(read.book, {0, 1, 603, 0});
    EXPECT_NE(all.find("|400:"), std::string::npos);
    EXPECT_EQ(all.find("|401:"), std::string::npos);
    EXPECT_TRUE(all.ends_with("|..."));
}

TEST(SourceExcerptTest, WideFiles) {
    std::string text = "\xFF\xFE";
    for (const char c : std::string("dn: cn=Al\ncn: Al\n")) {
        text += c;
        text += '\0';
    }
    const ReadBook read(ReadLdif, text);
    EXPECT_EQ(LinesOf(read.book, {0, 2, 1, 0}), "2:cn: Al|");
}

}  // namespace
}  // namespace orvik::book
