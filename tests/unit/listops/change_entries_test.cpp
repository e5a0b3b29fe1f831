#include "listops/change_entries.h"

#include <string>
#include <string_view>
#include <vector>

#include "app/working_text.h"
#include "unit/generated_texts.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using Lines = std::vector<std::string>;
using Rows = std::vector<std::size_t>;

// The same, literally: a list of lines, each with its end, and no thought of speed.
Lines LinesOf(std::string_view block) {
    Lines lines;
    bool ended = true;
    for (std::size_t i = 0; i < block.size(); ++i) {
        if (ended) {
            lines.emplace_back();
        }
        lines.back() += block[i];
        ended = block[i] == '\r';
        if (ended && i + 1 < block.size() && block[i + 1] == '\n') {
            lines.back() += block[++i];
        }
    }
    return lines;
}

std::string Joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line;
    }
    if (!text.empty() && text.back() == '\r') {
        text += "\n";
    } else if (!text.empty() && !text.ends_with("\r\n")) {
        text += "\r\n";
    }
    return text;
}

Lines ReplacedLiterally(Lines lines, std::size_t row, const std::string& value) {
    if (lines.size() <= row) {
        const std::string ended = Joined(lines);
        lines = LinesOf(ended);
        lines.resize(row + 1, "\r\n");
    }
    lines[row] = value + "\r\n";
    return lines;
}

Lines DeletedLiterally(const Lines& lines, const Rows& rows) {
    Lines kept;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (std::find(rows.begin(), rows.end(), i) == rows.end()) {
            kept.push_back(lines[i]);
        }
    }
    return kept;
}

void CompareWithTwin(const std::string& text) {
    SCOPED_TRACE(testing::PrintToString(text));
    const ListedBlocks blocks = FindBlocks(text);
    const Lines addresses = LinesOf(blocks.Addresses);
    const Lines nicknames = LinesOf(blocks.Nicknames);
    const std::size_t count = std::max(addresses.size(), nicknames.size());
    ASSERT_EQ(CountRows(text), count);
    for (std::size_t row = 0; row < count; ++row) {
        ASSERT_EQ(ReplaceRow(text, row, "X", "Y"),
                  Joined(ReplacedLiterally(addresses, row, "X")) + "-nick-\r\n" +
                      Joined(ReplacedLiterally(nicknames, row, "Y")));
    }
    for (std::size_t chosen = 1; chosen < std::size_t{1} << std::min<std::size_t>(count, 4);
         ++chosen) {
        Rows rows;
        for (std::size_t row = 0; row < count; ++row) {
            if ((chosen >> row & 1U) != 0) {
                rows.push_back(row);
            }
        }
        std::string left = Joined(DeletedLiterally(addresses, rows));
        const std::string right = Joined(DeletedLiterally(nicknames, rows));
        if (left.empty() && right.empty()) {
            ASSERT_EQ(DeleteRows(text, rows), "");
            continue;
        }
        if (left.empty()) {
            left = "\r\n";
        }
        ASSERT_EQ(DeleteRows(text, rows), left + "-nick-\r\n" + right);
    }
}

TEST(ChangeEntries, DoesWhatItsLiteralTwinDoes) {
    const test::Fragments parts = {"a", "\r", "\n", "\r\n", "\r\n-nick-\r\n", "-nick-"};
    ForEveryText(parts, 5, CompareWithTwin);
    ForRandomTexts(parts, 12, 500, CompareWithTwin);
}

TEST(ChangeEntries, ARowOfAWellFormedTextIsReplaced) {
    const std::string text = "A1\r\nA2\r\nA3\r\n-nick-\r\nAl\r\nBo\r\n\r\n";
    EXPECT_EQ(ReplaceRow(text, 0, "X", ""), "X\r\nA2\r\nA3\r\n-nick-\r\n\r\nBo\r\n\r\n");
    EXPECT_EQ(ReplaceRow(text, 2, "X", "Y"), "A1\r\nA2\r\nX\r\n-nick-\r\nAl\r\nBo\r\nY\r\n");
    EXPECT_EQ(ReplaceRow(text, 1, "", ""), "A1\r\n\r\nA3\r\n-nick-\r\nAl\r\n\r\n\r\n");
}

TEST(ChangeEntries, TheShorterBlockIsFilledUpToTheRow) {
    EXPECT_EQ(ReplaceRow("A1\r\nA2\r\nA3\r\n-nick-\r\n", 2, "X", "Y"),
              "A1\r\nA2\r\nX\r\n-nick-\r\n\r\n\r\nY\r\n");
    EXPECT_EQ(ReplaceRow("A1\r\n-nick-\r\nAl\r\nBo\r\n", 1, "X", "Y"),
              "A1\r\nX\r\n-nick-\r\nAl\r\nY\r\n");
}

TEST(ChangeEntries, RowsAreDeletedFromBothBlocks) {
    const std::string text = "A1\r\nA2\r\nA3\r\n-nick-\r\nAl\r\nBo\r\nCy\r\n";
    EXPECT_EQ(DeleteRows(text, {0}), "A2\r\nA3\r\n-nick-\r\nBo\r\nCy\r\n");
    EXPECT_EQ(DeleteRows(text, {1, 2}), "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(DeleteRows(text, {0, 1, 2}), "");
    EXPECT_EQ(DeleteRows("A1\r\n-nick-\r\nAl\r\nBo\r\n", {0}), "\r\n-nick-\r\nBo\r\n");
}

TEST(ChangeEntries, RowsAreThoseOfTheLists) {
    EXPECT_EQ(CountRows("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n"), 2U);
    EXPECT_EQ(CountRows("A1\r\n-nick-\r\nAl\r\nBo\r\n"), 2U);
    EXPECT_EQ(CountRows("-nick-"), 0U);
    EXPECT_EQ(CountRows("-nick-\r\n"), 0U);
    EXPECT_EQ(CountRows("\r\n-nick-\r\n\r\n"), 1U);
    // An address line may hold the letters of the middle line.
    EXPECT_EQ(CountRows("x-nick-\r\nA2\r\n-nick-\r\nAl\r\n\r\n"), 2U);
}

TEST(ChangeEntries, OtherLinesKeepTheirBytes) {
    EXPECT_EQ(ReplaceRow("A\n1\rA2\r\n-nick-\r\n\xFC\r\nBo\r\n", 1, "X", "Y"),
              "A\n1\rX\r\n-nick-\r\n\xFC\r\nY\r\n");
    EXPECT_EQ(DeleteRows("A1\rA2\r\n-nick-\r\nAl\r\nBo\r\n", {1}), "A1\r\n-nick-\r\nAl\r\n");
}

struct FaultRow {
    const char* name;
    std::string_view address;
    std::string_view nickname;
    std::string_view separator;
    EntryFault fault;
};

class FaultOfTest : public testing::TestWithParam<FaultRow> {};

TEST_P(FaultOfTest, Row) {
    EXPECT_EQ(FaultOf(GetParam().address, GetParam().nickname, GetParam().separator),
              GetParam().fault);
}

using F = EntryFault;
constexpr std::string_view kCr = "\r";
constexpr std::string_view kNul("a\0b", 3);
INSTANTIATE_TEST_SUITE_P(
    ,
    FaultOfTest,
    testing::Values(FaultRow{"Plain", "a@b", "Al", kCr, F::None},
                    FaultRow{"BothEmpty", "", "", kCr, F::None},
                    FaultRow{"CrInAddress", "a\rb", "", ",", F::LineBreak},
                    FaultRow{"LfInAddress", "a\nb", "", kCr, F::LineBreak},
                    FaultRow{"NulInAddress", kNul, "", kCr, F::LineBreak},
                    FaultRow{"CrInNickname", "a", "A\r", kCr, F::LineBreak},
                    FaultRow{"LfInNickname", "a", "\nA", kCr, F::LineBreak},
                    FaultRow{"NulInNickname", "a", kNul, kCr, F::LineBreak},
                    FaultRow{"QuoteInAddress", "a\"", "A", kCr, F::Quote},
                    FaultRow{"QuoteInNickname", "a", "\"A\"", kCr, F::Quote},
                    FaultRow{"LeftInAddress", "<a", "A", kCr, F::AngleBracket},
                    FaultRow{"RightInAddress", "a>", "A", kCr, F::AngleBracket},
                    FaultRow{"BracketsInNickname", "a", "<A>", kCr, F::None},
                    FaultRow{"CommaInAddress", "a,b", "A", ",", F::Separator},
                    FaultRow{"CommaWithOtherSeparator", "a,b", "A", kCr, F::None},
                    FaultRow{"CommaInNickname", "a", "A, B", ",", F::None},
                    FaultRow{"NoSeparator", "a,b", "A", "", F::None},
                    FaultRow{"MiddleInAddress", "a-nick-b", "A", kCr, F::MiddleInAddress},
                    FaultRow{"MiddleAsNickname", "a", "-nick-", kCr, F::MiddleAsNickname},
                    FaultRow{"MiddleInNickname", "a", "-nick-2", kCr, F::None}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace orvik
