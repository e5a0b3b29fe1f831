#include "book/lines.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

std::vector<std::string> All(std::string_view text) {
    std::vector<std::string> all;
    std::size_t bytes = 0;
    Line line;
    for (Lines lines(text); lines.Next(line);) {
        all.emplace_back(line.Text);
        bytes += line.WithEnd.size();
        EXPECT_EQ(line.Number, all.size());
        EXPECT_EQ(line.WithEnd.data(), line.Text.data());
    }
    EXPECT_EQ(bytes, text.size());
    return all;
}

TEST(Lines, EndWithEachOfTheEnds) {
    using List = std::vector<std::string>;
    EXPECT_EQ(All(""), List{});
    EXPECT_EQ(All("a"), List{"a"});
    EXPECT_EQ(All("a\nb\n"), (List{"a", "b"}));
    EXPECT_EQ(All("a\r\nb\rc\nd"), (List{"a", "b", "c", "d"}));
    EXPECT_EQ(All("a\r\r\nb"), (List{"a", "b"}));
    EXPECT_EQ(All("a\r\rb"), (List{"a", "", "b"}));
    EXPECT_EQ(All("\r\n\n\r"), (List{"", "", ""}));
    const std::string longer(1000, 'x');
    EXPECT_EQ(All(longer + "\r" + longer + "\n"), (List{longer, longer}));
}

TEST(CountLineEnds, NamesTheOneThatIsThereMost) {
    EXPECT_EQ(NameOf(CountLineEnds("a")), "no line end");
    EXPECT_EQ(NameOf(CountLineEnds("a\nb\nc\r\n")), "LF");
    EXPECT_EQ(NameOf(CountLineEnds("a\nb\r\nc\r\n")), "CR LF");
    EXPECT_EQ(NameOf(CountLineEnds("a\rb\rc\r\n")), "CR");
    const LineEnds ends = CountLineEnds("\r\r\n\n");
    EXPECT_EQ(ends.Lf, 1U);
    EXPECT_EQ(ends.CrLf, 1U);
    EXPECT_EQ(ends.Cr, 1U);
}

}  // namespace
}  // namespace orvik::book
