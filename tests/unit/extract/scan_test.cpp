#include "extract/scan.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "unit/failure.h"
#include "unit/generated_texts.h"
#include "unit/literal_text.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;
using test::LiteralText;

class Recorder : public ScanProgress {
 public:
    void Percent(int percent) override { percents.push_back(percent); }

    std::vector<int> percents;
};

struct Result {
    std::string found;
    std::int16_t count = 0;
    std::vector<int> percents;
    int failure = 0;
};

Result Scan(const Chunk& chunk, std::int16_t count = 0) {
    Result result{{}, count, {}, 0};
    Recorder progress;
    result.failure = FailureOf([&] { ScanChunk(chunk, result.found, result.count, progress); });
    result.percents = progress.percents;
    return result;
}

Result ScanWhole(std::string_view text) {
    return Scan({text, 1, text.size()});
}

struct Row {
    const char* name;
    std::string_view text;
    std::string found;
};

class ScanTest : public testing::TestWithParam<Row> {};

TEST_P(ScanTest, Row) {
    const Result result = ScanWhole(GetParam().text);
    EXPECT_EQ(result.found, GetParam().found);
    EXPECT_EQ(result.count, std::count(result.found.begin(), result.found.end(), '\n'));
    EXPECT_EQ(result.failure, 0);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    ScanTest,
    testing::Values(Row{"BracketsAndComma_DelimitAddresses", "x <a@b>, c@d e", "a@b\r\nc@d\r\n"},
                    Row{"SchemeBeforeAddress_IsKept", "x mailto:a@b y", "mailto:a@b\r\n"},
                    Row{"QuotesParenthesesAndSemicolon_AreKept", " \"(a@b);\" ", "\"(a@b);\"\r\n"},
                    Row{"TwoMarksInAWord_AreOneAddress", " a@b@c ", "a@b@c\r\n"},
                    Row{"LoneMark_IsAnAddress", "a @ b", "@\r\n"},
                    Row{"FirstCharacter_IsLost", "ab@c ", "b@c\r\n"},
                    Row{"MarkAtStart_IsLost", "@ab c", "ab\r\n"},
                    Row{"MarkAloneAtStart_GivesAnEmptyLine", "@ b", "\r\n"},
                    Row{"LastCharacter_IsLost", " a@bc", "a@b\r\n"},
                    Row{"MarkAtEnd_IsLost", " a@", "a\r\n"},
                    Row{"OneMark_GivesAnEmptyLine", "@", "\r\n"},
                    Row{"ControlCharacters_Delimit",
                        " a\tb@c\x1F"
                        "d \x01"
                        "e@f\r\n",
                        "b@c\r\ne@f\r\n"},
                    Row{"ZeroByte_Delimits", {" a\0b@c\0d ", 9}, "b@c\r\n"},
                    Row{"ClosingBracketOnTheLeft_IsKept", " a>b@c ", "a>b@c\r\n"},
                    Row{"OpeningBracketOnTheRight_IsKept", " a@b<c ", "a@b<c\r\n"},
                    Row{"BytesAbove127_AreKept", " \xE9\x80@\xFF ", "\xE9\x80@\xFF\r\n"},
                    Row{"SameAddressTwice_IsFoundTwice", " a@b a@b ", "a@b\r\na@b\r\n"},
                    Row{"MarkRightBehindAComma_BeginsAnAddress", " a@b,@c ", "a@b\r\n@c\r\n"},
                    Row{"Keyword_IsNoAddress", " subscribe SUBSCRIBE ", ""},
                    Row{"NoMark_FindsNothing", "a b c", ""},
                    Row{"EmptyText_FindsNothing", "", ""}),
    [](const auto& row) { return row.param.name; });

TEST(ScanChunk, LaterChunk_IsScannedFromItsOwnPositionOn) {
    EXPECT_EQ(Scan({" a@b c@d e@f ", 6, 100}).found, "c@d\r\ne@f\r\n");
}

TEST(ScanChunk, LaterChunkBeyondItsText_FindsNothing) {
    EXPECT_EQ(Scan({" a@b ", 6, 100}).found, "");
}

// The walk backwards goes before the place where the scan began.
TEST(ScanChunk, LaterChunkBeginningInsideAnAddress_HasAllOfIt) {
    EXPECT_EQ(Scan({" ab@cd ", 4, 100}).found, "ab@cd\r\n");
}

TEST(ScanChunk, TotalSmallerThanTheText_EndsAddressesThere) {
    EXPECT_EQ(Scan({" a@bcd e@f ", 1, 5}).found, "a@b\r\ne\r\n");
}

TEST(ScanChunk, FoundAndCount_GoOn) {
    std::string found = "x\r\n";
    std::int16_t count = 7;
    Recorder progress;
    ScanChunk({" a@b ", 1, 5}, found, count, progress);
    EXPECT_EQ(found, "x\r\na@b\r\n");
    EXPECT_EQ(count, 8);
}

TEST(ScanChunk, Percentages_AreWholeNumbersUpTo100) {
    EXPECT_EQ(Scan({"abc", 1, 3}).percents, (std::vector{33, 66, 100}));
    EXPECT_EQ(Scan({"abc", 1, 300}).percents, (std::vector{0, 1}));
    EXPECT_EQ(Scan({"abc", 3, 4}).percents, (std::vector{75, 100}));
}

TEST(ScanChunk, PercentagesInsideAnAddress_AreNotShown) {
    EXPECT_EQ(Scan({"a bcd@efghi", 1, 10}).percents, (std::vector{10, 20, 30, 40, 50, 60, 100}));
}

TEST(ScanChunk, NoTotal_ShowsNothing) {
    EXPECT_TRUE(Scan({"a b", 1, 0}).percents.empty());
}

TEST(ScanChunk, AddressBeyondTheMost_FailsWith6AndKeepsTheOthers) {
    const Result result =
        Scan({" a@b c@d e@f ", 1, 13}, std::numeric_limits<std::int16_t>::max() - 2);
    EXPECT_EQ(result.failure, 6);
    EXPECT_EQ(result.found, "a@b\r\nc@d\r\n");
    EXPECT_EQ(result.count, 32767);
}

TEST(ScanChunk, MostAddresses_AreFound) {
    std::string text;
    for (int i = 0; i < 32767; ++i) {
        text += " @";
    }
    text += ' ';
    const Result all = ScanWhole(text);
    EXPECT_EQ(all.failure, 0);
    EXPECT_EQ(all.count, 32767);
    EXPECT_EQ(all.found.size(), 3U * 32767);

    const Result too_many = ScanWhole(text + "@ ");
    EXPECT_EQ(too_many.failure, 6);
    EXPECT_EQ(too_many.count, 32767);
    EXPECT_EQ(too_many.found, all.found);
}

class RealFileTest : public testing::TestWithParam<const char*> {};

TEST_P(RealFileTest, ScannedAsOneChunk_GivesItsAddresses) {
    const std::string name = std::string(ORVIK_TEST_DATA) + "/" + GetParam();
    const std::string text = test::ReadFile(name);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(ScanWhole(text).found, test::ReadFile(name + ".addresses"));
}

INSTANTIATE_TEST_SUITE_P(,
                         RealFileTest,
                         testing::Values("folder.mbox", "choir.html", "contacts.csv"),
                         [](const auto& row) {
                             std::string name = row.param;
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

bool IsAbove(std::string_view c, char blank) {
    return !c.empty() && static_cast<unsigned char>(c[0]) > static_cast<unsigned char>(blank);
}

// The scan once more, slow and literal: one visited position after the other.
Result ScanLiterally(const Chunk& chunk, std::int16_t count) {
    const LiteralText text(chunk.Text);
    Result result{{}, count, {}, 0};
    int shown = -1;
    const std::size_t last = chunk.Start + text.size();
    for (std::size_t i = chunk.Start; i <= last; ++i) {
        if (chunk.Total > 0) {
            const int percent = static_cast<int>(std::min<std::size_t>(i * 100 / chunk.Total, 100));
            if (percent != shown) {
                shown = percent;
                result.percents.push_back(percent);
            }
        }
        if (text(i) != "@") {
            continue;
        }
        if (result.count == 32767) {
            result.failure = 6;
            return result;
        }
        ++result.count;
        const std::size_t mark = i;
        while (IsAbove(text(i), ' ') && text(i) != "<" && text(i) != "," && i > 1) {
            --i;
        }
        ++i;
        while ((IsAbove(text(i), ' ') && text(i) != ">" && text(i) != "," && i < chunk.Total) ||
               i < mark) {
            result.found += text(i);
            ++i;
        }
        result.found += "\r\n";
    }
    return result;
}

void CompareScans(const Chunk& chunk, std::int16_t count = 0) {
    const Result expected = ScanLiterally(chunk, count);
    const Result actual = Scan(chunk, count);
    const auto what = [&] {
        return testing::PrintToString(chunk.Text) + ", start " + std::to_string(chunk.Start) +
               ", total " + std::to_string(chunk.Total);
    };
    ASSERT_EQ(actual.found, expected.found) << what();
    ASSERT_EQ(actual.count, expected.count) << what();
    ASSERT_EQ(actual.percents, expected.percents) << what();
    ASSERT_EQ(actual.failure, expected.failure) << what();
}

TEST(ScanChunk, EveryShortText_EqualsLiteralScan) {
    ForEveryText({"a", "@", " ", "<", ">", ","}, 6, [](const std::string& text) {
        CompareScans({text, 1, text.size()});
        CompareScans({text, 3, text.size() + 2});
    });
}

TEST(ScanChunk, EveryStartAndTotalOfShortTexts_EqualsLiteralScan) {
    ForEveryText({"a", "@", " ", ","}, 5, [](const std::string& text) {
        for (std::size_t start = 1; start <= text.size() + 2; ++start) {
            for (std::size_t total = 0; total <= text.size() + 3; ++total) {
                CompareScans({text, start, total});
            }
        }
    });
}

TEST(ScanChunk, RandomLongTexts_EqualLiteralScan) {
    const Fragments fragments = {"a",
                                 "@",
                                 " ",
                                 "<",
                                 ">",
                                 ",",
                                 "\r\n",
                                 "ab@cd",
                                 "\t",
                                 "\x1F",
                                 "\xE9",
                                 "x y z",
                                 "subscribe",
                                 "<a@b>, ",
                                 "mailto:"};
    std::size_t turn = 0;
    ForRandomTexts(fragments, 300, 3000, [&](const std::string& text) {
        ++turn;
        CompareScans({text, 1, text.size()});
        CompareScans({text, 1 + turn % (text.size() + 3), 1 + turn * 7 % (2 * text.size() + 3)});
        CompareScans({text, 5001, 40000}, static_cast<std::int16_t>(32767 - turn % 40));
        CompareScans({text, 1, text.size()}, static_cast<std::int16_t>(32767 - turn % 40));
    });
}

}  // namespace
}  // namespace orvik
