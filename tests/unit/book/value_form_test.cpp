#include "book/value_form.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book/transfer.h"

namespace orvik::book {
namespace {

TEST(AppendEscaped, ComesBack) {
    const struct {
        std::string Text;
        std::string Value;
        std::string Back;
    } rows[] = {
        {"plain: text", "plain: text", "plain: text"},
        {"Abbott, Ada", "Abbott\\, Ada", "Abbott, Ada"},
        {"a;b\\c", "a\\;b\\\\c", "a;b\\c"},
        {"1\n2\r\n3\r4", "1\\n2\\n3\\n4", "1\n2\n3\n4"},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        std::string value;
        AppendEscaped(row.Text, value);
        EXPECT_EQ(value, row.Value);
        EXPECT_EQ(Unescaped(value), row.Back);
        EXPECT_EQ(NeedsEscapes(row.Text), row.Text != row.Value);
    }
    EXPECT_EQ(Unescaped("C\\dir\\Name\\:\\"), "C\\dir\name:\\");
}

TEST(TakePart, StopsAtSeparatorsThatAreNotEscaped) {
    std::string_view rest = "a\\;b;;c\\\\;\\";
    std::vector<std::string> parts;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(rest, ';');
        parts.emplace_back(part.Text);
    }
    EXPECT_EQ(parts, (std::vector<std::string>{"a\\;b", "", "c\\\\", "\\"}));
    EXPECT_EQ(PartAt("a;b\\;x;c", 1), "b\\;x");
    EXPECT_EQ(PartAt("a;b", 2), "");
    EXPECT_EQ(PartAt("a;b;", 2), "");
    EXPECT_EQ(PartCount("a\\;b;;"), 3U);
    EXPECT_EQ(PartCount(""), 1U);
}

std::string FromBase64(std::string_view text) {
    std::string bytes;
    return AppendBase64(text, bytes) ? bytes : "none";
}

TEST(AppendBase64, TakesWhatProgramsWrote) {
    EXPECT_EQ(FromBase64("QWRh"), "Ada");
    EXPECT_EQ(FromBase64("QW Rh\tQQ"), "AdaA");
    EXPECT_EQ(FromBase64("QWRhQQ=="), "AdaA");
    EXPECT_EQ(FromBase64("QWRhQUE="), "AdaAA");
    EXPECT_EQ(FromBase64(""), "");
    for (const std::string_view odd : {"A", "QWRhQ", "QW!h", "QQ==QQ", "Q\xC3\xAB"}) {
        EXPECT_EQ(FromBase64(odd), "none") << odd;
    }
    EXPECT_EQ(ToBase64("AdaA"), "QWRhQQ==");
    EXPECT_EQ(ToBase64(""), "");
}

TEST(AppendQuotedPrintable, KeepsWhatIsNoByte) {
    std::string text;
    EXPECT_FALSE(AppendQuotedPrintable("J=F6rg=0d=0A", text));
    EXPECT_EQ(text, "J\xF6rg\r\n");
    text.clear();
    EXPECT_TRUE(AppendQuotedPrintable("a=b =4 =41=", text));
    EXPECT_EQ(text, "a=b =4 A=");
}

}  // namespace
}  // namespace orvik::book
