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

// Where the rows say that the first colon is.
std::size_t ColonIn(std::string_view text) {
    TextRows rows;
    rows.Add(text, 1, false);
    const std::uint32_t colon = rows.All().front().Colon;
    return colon == TextRow::kNoColon ? std::string_view::npos : colon;
}

TEST(TextRows, KnowWhereTheFirstColonIs) {
    EXPECT_EQ(ColonIn(""), std::string_view::npos);
    // The first text begins at every place of eight bytes, and what follows is never looked at.
    for (std::size_t before = 0; before < 8; ++before) {
        for (std::size_t length = 0; length <= 80; ++length) {
            const std::string room = std::string(before + length, 'a') + "::::::::";
            const std::string_view plain = std::string_view(room).substr(before, length);
            ASSERT_EQ(ColonIn(plain), std::string_view::npos) << before << " " << length;
            for (std::size_t at = 0; at < length; ++at) {
                std::string text = room;
                text[before + at] = ':';
                text[before + length - 1] = ':';
                ASSERT_EQ(ColonIn(std::string_view(text).substr(before, length)), at)
                    << before << " " << length;
            }
        }
    }
}

TEST(TextRows, TakeNoOtherByteForAColon) {
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        for (std::size_t at = 0; at < 16; ++at) {
            // Beside a colon, too: one byte must not be mistaken for its neighbour.
            std::string text(at, c);
            ASSERT_EQ(ColonIn(text + ":" + c + ":"), c == ':' ? 0 : at) << byte;
            text += std::string(40, c);
            ASSERT_EQ(ColonIn(text), c == ':' ? 0 : std::string_view::npos) << byte;
        }
    }
}

TEST(TextRows, JoinLinesOfTextAndForgetThem) {
    const std::string_view text = "one\ntwo\na:b\nthree\n";
    TextRows rows;
    rows.Add(text.substr(0, 3), 1, false);
    rows.Add(text.substr(4, 3), 2, false);
    rows.Add(text.substr(8, 3), 3, false);
    rows.Add(text.substr(12, 5), 4, false);
    rows.Add("folded", 5, true);
    ASSERT_EQ(rows.All().size(), 4U);
    EXPECT_EQ(rows.All()[0].Text, "one\ntwo");
    EXPECT_EQ(rows.All()[0].Colon, TextRow::kNoColon);
    EXPECT_EQ(rows.All()[1].Colon, 1U);
    EXPECT_EQ(rows.All()[2].Text, "three");
    EXPECT_EQ(rows.All()[3].Text, "folded");
    for (const std::uint32_t count : {4096U, 4097U, 100000U}) {
        for (std::uint32_t i = 0; i < count; ++i) {
            rows.Add("a:", i, false);
        }
        rows.Clear();
        EXPECT_TRUE(rows.All().empty());
        EXPECT_LE(rows.All().capacity(), 4096U);
        // Text behind what was forgotten goes on with nothing.
        rows.Add(text.substr(0, 3), 1, false);
        EXPECT_EQ(rows.All().size(), 1U);
    }
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
