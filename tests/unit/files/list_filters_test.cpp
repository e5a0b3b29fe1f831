#include "files/list_filters.h"

#include <string>

#include "unit/generated_texts.h"
#include "unit/literal_text.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::LiteralText;

struct Row {
    const char* name;
    std::string_view text;
    std::string list;
};

std::string NameOf(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

class FilterPegasusTest : public testing::TestWithParam<Row> {};

TEST_P(FilterPegasusTest, Row) {
    EXPECT_EQ(FilterPegasus(GetParam().text), GetParam().list);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    FilterPegasusTest,
    testing::Values(
        Row{"FirstLine_LeavesItsLineEnd", "\\TITLE x\r\nA1\r\n", "\r\nA1\r\n"},
        Row{"LaterLine_LeavesItsLf", "A1\r\n\\NOSIG\r\nA2\r\n", "A1\nA2\r\n"},
        Row{"FirstAndLater_LeaveBoth", "\\TITLE x\r\nA1\r\n\\NOSIG\r\nA2\r\n", "\r\nA1\nA2\r\n"},
        Row{"LinesInARow_LeaveTheLfOfTheLast", "A1\r\n\\a\r\n\\b\r\n\\c\r\nA2\r\n", "A1\nA2\r\n"},
        Row{"LinesInARowAtStart_LeaveOneLf", "\\a\r\n\\b\r\nA1\r\n", "\nA1\r\n"},
        Row{"OnlySuchLines_LeaveALineEnd", "\\a\r\n", "\r\n"},
        Row{"OnlySuchLinesInARow_LeaveALf", "\\a\r\n\\b\r\n", "\n"},
        Row{"FirstLineWithoutEnd_LeavesNothing", "\\a", ""},
        Row{"LastLineWithoutEnd_LeavesNothing", "A1\r\n\\a", "A1"},
        Row{"LastLineEndedByCr_LeavesNothing", "A1\r\n\\a\r", "A1"},
        Row{"LineEndedByCrOnly_LosesTheCr", "A1\r\n\\a\rA2", "A1A2"},
        Row{"BackslashInsideLine_IsKept", "A\\1\r\n \\a\r\n", "A\\1\r\n \\a\r\n"},
        Row{"BackslashBehindLoneLf_IsKept", "A1\n\\a\r\n", "A1\n\\a\r\n"},
        Row{"BackslashOnly_LeavesNothing", "\\", ""},
        Row{"EmptyText_StaysEmpty", "", ""},
        Row{"NoSuchLines_StayAsTheyAre", "A1\r\nA2", "A1\r\nA2"}),
    NameOf);

// The filter once more, slow and literal.
std::string FilterPegasusLiterally(std::string_view list) {
    const LiteralText text(list);
    std::string result;
    std::size_t i = 1;
    if (text(1) == "\\") {
        while (text(i) != "\r" && i <= text.size()) {
            ++i;
        }
    }
    for (; i <= text.size(); ++i) {
        if (text(i, 3) == "\r\n\\") {
            do {
                ++i;
                while (text(i) != "\r" && i <= text.size()) {
                    ++i;
                }
            } while (text(i, 3) == "\r\n\\");
        } else {
            result += text(i);
        }
    }
    return result;
}

void ComparePegasus(const std::string& text) {
    ASSERT_EQ(FilterPegasus(text), FilterPegasusLiterally(text)) << testing::PrintToString(text);
}

TEST(FilterPegasus, EveryShortText_EqualsLiteralFilter) {
    ForEveryText({"a", "\\", "\r", "\n", "\r\n", "\r\n\\"}, 6, ComparePegasus);
}

TEST(FilterPegasus, RandomLongTexts_EqualLiteralFilter) {
    ForRandomTexts({"a", "\\", "\r", "\n", "\r\n", "\r\n\\", "\\NOSIG\r\n", "\r\nA1", "\xE9"},
                   60,
                   4000,
                   ComparePegasus);
}

class FilterAliasesTest : public testing::TestWithParam<Row> {};

TEST_P(FilterAliasesTest, Row) {
    EXPECT_EQ(FilterAliases(GetParam().text), GetParam().list);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    FilterAliasesTest,
    testing::Values(
        Row{"Lines_GiveNameAndAddress",
            "alias \"Al B\" A1\r\nalias Bo A2, x\r\n",
            "\"Al B\"A1\r\n\"Bo\"A2\r\n"},
        Row{"OtherLines_AreDropped", "note \"Al\" x\r\nalias Al A1\r\n", "\"Al\"A1\r\n"},
        Row{"AnyCase_Counts", "ALIAS Al A1\r\nAliAs Bo A2\r\n", "\"Al\"A1\r\n\"Bo\"A2\r\n"},
        Row{"WordInside_CountsToo", "xaliases y z\r\n", "\"s\"y\r\n"},
        Row{"AnyCharacterBehindTheWord_IsPassedOver", "alias\"Al\" A1\r\n", "\"Al\"\"A1\r\n"},
        Row{"BlanksBeforeNameAndAddress_AreSkipped", "alias   Al   A1\r\n", "\"Al\"A1\r\n"},
        Row{"BlanksBeforeQuote_MakeItPartOfTheName", "alias  \"Al\" A1\r\n", "\"\"Al\"\"A1\r\n"},
        Row{"QuotedNameWithComma_IsKept", "alias \"B, Al\" A1\r\n", "\"B, Al\"A1\r\n"},
        Row{"EmptyQuotedName_IsEmpty", "alias \"\" A1\r\n", "\"\"A1\r\n"},
        Row{"AddressRightBehindQuote_IsTaken", "alias \"Al\"A1\r\n", "\"Al\"A1\r\n"},
        Row{"Address_EndsAtBlank", "alias Al A1 A2\r\n", "\"Al\"A1\r\n"},
        Row{"Address_EndsAtComma", "alias Al A1,A2\r\n", "\"Al\"A1\r\n"},
        Row{"LfInsideAddress_IsKept", "alias Al A1\nx\r\n", "\"Al\"A1\nx\r\n"},
        Row{"NameWithoutBlank_RunsOverTheLineEnd",
            "alias Al\r\nalias Bo A2\r\n",
            "\"Al\r\nalias\"Bo\r\n"},
        Row{"NameWithoutAddress_GetsAnEmptyOne", "alias \"Al\"\r\n", "\"Al\"\r\n"},
        Row{"WordBehindTheDelimiter_CountsAgain",
            "alias Al A1,alias Bo A2\r",
            "\"Al\"A1\r\n\"Bo\"A2\r\n"},
        Row{"WordAtEnd_GivesAnEmptyEntry", "alias", "\"\"\r\n"},
        Row{"WordAndBlankAtEnd_GiveAnEmptyEntry", "alias ", "\"\"\r\n"},
        Row{"OpenQuote_GoesToTheEnd", "alias \"Al B", "\"Al B\"\r\n"},
        Row{"OpenName_GoesToTheEnd", "alias Al", "\"Al\"\r\n"},
        Row{"OpenAddress_GoesToTheEnd", "alias Al A1", "\"Al\"A1\r\n"},
        Row{"WordCutShort_IsDropped", "alia", ""},
        Row{"EmptyText_StaysEmpty", "", ""}),
    NameOf);

bool IsAlias(std::string_view word) {
    constexpr std::string_view kLower = "alias";
    constexpr std::string_view kUpper = "ALIAS";
    bool same = word.size() == kLower.size();
    for (std::size_t i = 0; same && i < word.size(); ++i) {
        same = word[i] == kLower[i] || word[i] == kUpper[i];
    }
    return same;
}

// The filter once more, slow and literal.
std::string FilterAliasesLiterally(std::string_view file) {
    const LiteralText text(file);
    std::string result;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        if (!IsAlias(text(i, 5))) {
            continue;
        }
        i += 6;
        result += "\"";
        if (text(i) == "\"") {
            ++i;
            while (text(i) != "\"" && i <= text.size()) {
                result += text(i);
                ++i;
            }
            ++i;
        } else {
            while (text(i) == " ") {
                ++i;
            }
            while (text(i) != " " && i <= text.size()) {
                result += text(i);
                ++i;
            }
        }
        result += "\"";
        while (text(i) == " ") {
            ++i;
        }
        while (text(i) != " " && text(i) != "," && text(i) != "\r" && i <= text.size()) {
            result += text(i);
            ++i;
        }
        result += "\r\n";
    }
    return result;
}

void CompareAliases(const std::string& text) {
    ASSERT_EQ(FilterAliases(text), FilterAliasesLiterally(text)) << testing::PrintToString(text);
}

TEST(FilterAliases, EveryShortText_EqualsLiteralFilter) {
    ForEveryText({"alias", "ALIAS ", "a", "\"", " ", ",", "\r\n"}, 6, CompareAliases);
}

TEST(FilterAliases, RandomLongTexts_EqualLiteralFilter) {
    ForRandomTexts({"alias",
                    "Alias ",
                    "alias \"Al B\" A1\r\n",
                    "alias Bo A2,",
                    "A",
                    "ali",
                    "\"",
                    " ",
                    ",",
                    "\r",
                    "\n",
                    "\xE9"},
                   60,
                   4000,
                   CompareAliases);
}

}  // namespace
}  // namespace orvik
