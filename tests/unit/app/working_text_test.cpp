#include "app/working_text.h"

#include <string>
#include <utility>
#include <vector>

#include "unit/failure.h"
#include "unit/generated_texts.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;

struct SplitRow {
    const char* name;
    std::string_view text;
    std::string_view separator;
    std::string emails;
    std::string nicks;
};

class SplitBlocksTest : public testing::TestWithParam<SplitRow> {};

TEST_P(SplitBlocksTest, Row) {
    const NativeBlocks blocks = SplitBlocks(GetParam().text, GetParam().separator);
    EXPECT_EQ(blocks.Emails, GetParam().emails);
    EXPECT_EQ(blocks.Nicks, GetParam().nicks);
}

std::string NameOf(const testing::TestParamInfo<SplitRow>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Entry,
    SplitBlocksTest,
    testing::Values(
        SplitRow{"BareAddress_HasEmptyNickname", "A1\r", "\r", "A1", ""},
        SplitRow{"NameAndBrackets_KeepBlankBehindName", "Al <A1>\r", "\r", "A1", "Al "},
        SplitRow{"QuotesAndBrackets_AreTakenOff", "\"Al\" <A1>\r", "\r", "A1", "Al"},
        SplitRow{"AddressAndQuotes_KeepBlankBehindAddress", "A1 \"Al\"\r", "\r", "A1 ", "Al"},
        SplitRow{"BracketsAndName_KeepBlankBeforeName", "<A1> Al\r", "\r", "A1", " Al"},
        SplitRow{"BracketsAndQuotes_AreTakenOff", "<A1>\"Al\"\r", "\r", "A1", "Al"},
        SplitRow{"BracketsBlankAndQuotes_AddBlankToAddress", "<A1> \"Al\"\r", "\r", "A1 ", "Al"},
        SplitRow{"BracketsTwoBlanksAndQuotes_SwapQuotedPart", "<A1>  \"Al\"\r", "\r", "A1Al", "  "},
        SplitRow{"QuotesOnly_HaveEmptyAddress", "\"Al\"\r", "\r", "", "Al"},
        SplitRow{"EmptyQuotesBeforeBrackets_GiveEmptyNickname", "\"\" <A1>\r", "\r", "A1", ""},
        SplitRow{"ManyBlanksBehindQuote_AreDropped", "\"Al\"   <A1>\r", "\r", "A1", "Al"},
        SplitRow{"BracketsInQuotes_AreOrdinary", "\"<Al>\" <A1>\r", "\r", "A1", "<Al>"},
        SplitRow{"BracketsBehindBrackets_AreOrdinary", "<A1> <Al>\r", "\r", "A1", " <Al>"},
        SplitRow{"OpenQuote_TakesRestOfEntry", "\"Al <A1>\rA2\r", "\r", "\r\nA2", "Al <A1>\r\n"},
        SplitRow{"OpenBracket_LeavesAddress", "<A1\r", "\r", "A1", ""},
        SplitRow{"SeparatorInQuotes_EndsEntry", "\"a,b\",", ",", "\r\nb", "a\r\n"},
        SplitRow{
            "QuoteOfNextEntryBehindBracket_KeepsRestInAddress", "<A1>x\"y\r", "\r", "A1x", "y"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    List,
    SplitBlocksTest,
    testing::Values(
        SplitRow{"TwoForms_ArePairedByLine", "\"Al\" <A1>\rA2\r", "\r", "A1\r\nA2", "Al\r\n"},
        SplitRow{"LinesWithCrLf_GiveOneEntryEach", "A1\r\nA2\r\n", "\r", "A1\r\nA2", "\r\n"},
        SplitRow{"NoLastSeparator_LosesLastCharacter", "A1,A2", ",", "A1\r\nA", "\r\n"},
        SplitRow{"OneCharacterLastEntry_IsLost", "A1,x", ",", "A1", ""},
        SplitRow{"LastCharacterClosingQuote_EndsNickname", "\"Al\"", "\r", "", "Al"},
        SplitRow{"LastCharacterLf_EndsEntry", "A1\n", ",", "A1", ""},
        SplitRow{"BlanksBehindQuoteUpToEnd_SwallowTheEnd", "A1,\"Al\"  ", ",", "A1", ""},
        SplitRow{"CrWithCommas_IsOrdinary", "A1\r\nA2,", ",", "A1\rA2", ""},
        SplitRow{"CommaWithCr_IsOrdinary", "A1,A2\r", "\r", "A1,A2", ""},
        SplitRow{"EntryOverTwoLines_LosesLfOnly", "A\n1,A\r\n2,", ",", "A1\r\nA\r2", "\r\n"},
        SplitRow{"EmptyEntries_AreSkipped", ",,A1,,,A2,,", ",", "A1\r\nA2", "\r\n"},
        SplitRow{"BlankEntry_Counts", " ,", ",", " ", ""},
        SplitRow{"NativeText_IsSplitLineByLine",
                 "A1\r\n-nick-\r\nAl\r\n",
                 "\r",
                 "A1\r\n-nick-\r\nAl",
                 "\r\n\r\n"},
        SplitRow{"ZeroByte_IsOrdinary", {"A\0B\r", 4}, "\r", {"A\0B", 3}, ""},
        SplitRow{"BytesAbove127_AreOrdinary", "\xE9\xFF\r", "\r", "\xE9\xFF", ""}),
    NameOf);

class NoEntryTest : public testing::TestWithParam<std::string> {};

TEST_P(NoEntryTest, TextWithoutEntry_FailsWith5) {
    const std::string text = GetParam();
    EXPECT_EQ(FailureOf([&] { static_cast<void>(SplitBlocks(text, "\r")); }), 5);
}

INSTANTIATE_TEST_SUITE_P(
    , NoEntryTest, testing::Values("", "\r", "\r\n", "\n", "\r\n\r\n", "x", "\"\"\r", "<>\r"));

// The splitter once more, slow and literal, one character after the other. The fast one must not
// differ from it for any text.
NativeBlocks SplitLiterally(std::string_view text, std::string_view separator) {
    const auto at = [&](std::size_t p) {
        return p >= 1 && p <= text.size() ? text.substr(p - 1, 1) : std::string_view();
    };
    NativeBlocks blocks;
    std::string token;
    std::string address;
    std::string nickname;
    bool in_nickname = false;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        const std::string_view c = at(i);
        if (c == separator || i == text.size()) {
            (in_nickname ? nickname : address) += token;
            if (!(address.empty() && nickname.empty())) {
                blocks.Emails += address + "\r\n";
                blocks.Nicks += nickname + "\r\n";
            }
            address = "";
            nickname = "";
            token = "";
            in_nickname = false;
        } else if (c == "\n") {
            continue;
        } else if (c == "\"") {
            if (in_nickname) {
                in_nickname = false;
                nickname += token;
                while (at(i + 1) == " ") {
                    ++i;
                }
            } else {
                in_nickname = true;
                address += token;
            }
            token = "";
        } else if (c == "<" && !in_nickname) {
            nickname += token;
            token = "";
        } else if (c == ">" && !in_nickname) {
            address += token;
            token = "";
            if (at(i + 1) != "\"" && at(i + 2) != "\"") {
                in_nickname = true;
            }
        } else {
            token += c;
        }
    }
    if (blocks.Emails.size() < 2 || blocks.Nicks.size() < 2) {
        throw RunTimeError(Failure::InvalidProcedureCall);
    }
    blocks.Emails.erase(blocks.Emails.size() - 2);
    blocks.Nicks.erase(blocks.Nicks.size() - 2);
    return blocks;
}

void CompareSplits(const std::string& text) {
    for (const std::string_view separator : {"\r", ","}) {
        NativeBlocks expected;
        NativeBlocks actual;
        const int failure = FailureOf([&] { expected = SplitLiterally(text, separator); });
        ASSERT_EQ(FailureOf([&] { actual = SplitBlocks(text, separator); }), failure)
            << testing::PrintToString(text);
        ASSERT_EQ(actual.Emails, expected.Emails) << testing::PrintToString(text);
        ASSERT_EQ(actual.Nicks, expected.Nicks) << testing::PrintToString(text);
    }
}

TEST(SplitBlocks, EveryShortText_EqualsLiteralSplit) {
    ForEveryText({"a", "\"", "<", ">", " ", "\r", "\n", ","}, 6, CompareSplits);
}

TEST(SplitBlocks, EveryTextOfSevenWithoutLineBreaks_EqualsLiteralSplit) {
    ForEveryText({"a", "\"", "<", ">", " ", ","}, 7, CompareSplits);
}

TEST(SplitBlocks, RandomLongTexts_EqualLiteralSplit) {
    ForRandomTexts({"a",
                    "\"",
                    "<",
                    ">",
                    " ",
                    "\r",
                    "\n",
                    ",",
                    "\r\n",
                    "\"Al\" <A1>",
                    "A2 \"Bo\"",
                    "<A3> Cy",
                    "Di <A4>",
                    "<A5>\"Ed\"",
                    "\"\"",
                    "-nick-\r\n",
                    "\"  ",
                    "a@b.example",
                    "\xE9"},
                   60,
                   4000,
                   CompareSplits);
}

TEST(JoinBlocks, TwoEntries_GiveNativeText) {
    EXPECT_EQ(JoinBlocks({"A1\r\nA2", "Al\r\n"}), "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
}

TEST(JoinBlocks, EntryWithoutAddress_KeepsItsEmptyLine) {
    EXPECT_EQ(JoinBlocks({"", "Al"}), "\r\n-nick-\r\nAl\r\n");
}

TEST(JoinBlocks, SplitOfTwoLines_GivesTwoEmptyNicknames) {
    EXPECT_EQ(JoinBlocks(SplitBlocks("A1\r\nA2\r\n", "\r")), "A1\r\nA2\r\n-nick-\r\n\r\n\r\n");
}

using Items = std::vector<std::string>;

struct Lists {
    Items emails;
    Items nicks;
    std::size_t count = 0;
};

Lists List(std::string_view text) {
    Lists lists;
    lists.count = ListNative(
        text,
        [&](std::string_view item) { lists.emails.emplace_back(item); },
        [&](std::string_view item) { lists.nicks.emplace_back(item); });
    return lists;
}

struct ListRow {
    const char* name;
    std::string_view text;
    Items emails;
    Items nicks;
};

class ListNativeTest : public testing::TestWithParam<ListRow> {};

TEST_P(ListNativeTest, Row) {
    const Lists lists = List(GetParam().text);
    EXPECT_EQ(lists.emails, GetParam().emails);
    EXPECT_EQ(lists.nicks, GetParam().nicks);
    EXPECT_EQ(lists.count, GetParam().emails.size());
}

INSTANTIATE_TEST_SUITE_P(
    ,
    ListNativeTest,
    testing::Values(
        ListRow{
            "TwoEntries_AreListed", "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n", {"A1", "A2"}, {"Al", ""}},
        ListRow{"EmptyAddressBlock_IsOneEmptyItem", "\r\n-nick-\r\nAl\r\n", {""}, {"Al"}},
        ListRow{"EmptyAddressLine_IsAnEmptyItem",
                "A1\r\n\r\n-nick-\r\nAl\r\nBo\r\n",
                {"A1", ""},
                {"Al", "Bo"}},
        ListRow{"MoreNicknames_AreListedToo", "A1\r\n-nick-\r\nAl\r\nBo\r\n", {"A1"}, {"Al", "Bo"}},
        ListRow{"LastNicknameWithoutCr_IsNotListed", "A1\r\n-nick-\r\nAl\r\nBo", {"A1"}, {"Al"}},
        ListRow{"NothingBehindSeparator_HasNoNicknames", "A1\r\n-nick-", {"A1"}, {}},
        ListRow{"CharacterBehindSeparator_IsPassedOver", "A1\r\n-nick-xAl\r", {"A1"}, {"Al"}},
        ListRow{"SecondSeparator_IsANickname", "A1\r\n-nick-\r\n-nick-\r\n", {"A1"}, {"-nick-"}},
        ListRow{"SeparatorAtStart_IsNoSeparator", "-nick-\r\nAl\r\n", {"-nick-", "Al", ""}, {}},
        ListRow{"SeparatorInsideLine_IsText", "A-nick-\r\n-nick-\r\n", {"A-nick-"}, {}},
        ListRow{"LoneCr_EndsAnAddress", "A1\rA2\r\n-nick-\r\n", {"A1", "A2"}, {}},
        ListRow{"LfInside_IsDropped", "\nA\n1\n\r\n-nick-\r\n\nA\nl\r\n", {"A1"}, {"Al"}},
        ListRow{"NoSeparator_LosesLastCharacter", "A1\r\nA2", {"A1", "A"}, {}},
        ListRow{"NoSeparatorAndLastCr_IsNotAnEnd", "A1\r\nA2\r", {"A1", "A2"}, {}},
        ListRow{"OneCharacter_IsOneEmptyItem", "x", {""}, {}},
        ListRow{"EmptyText_IsOneEmptyItem", "", {""}, {}}),
    [](const auto& row) { return row.param.name; });

// The lists once more, slow and literal.
Lists ListLiterally(std::string_view text) {
    const auto mid = [&](std::size_t p, std::size_t length) {
        return p <= text.size() ? text.substr(p - 1, length) : std::string_view();
    };
    Lists lists;
    lists.count = 1;
    std::size_t p = 1;
    std::string buffer;
    while (mid(p, 8) != "\r\n-nick-" && p < text.size()) {
        if (mid(p, 1) == "\r") {
            lists.emails.push_back(std::exchange(buffer, ""));
            ++lists.count;
        } else if (mid(p, 1) != "\n") {
            buffer += mid(p, 1);
        }
        ++p;
    }
    lists.emails.push_back(std::exchange(buffer, ""));
    for (std::size_t i = p + 9; i <= text.size(); ++i) {
        if (mid(i, 1) == "\r") {
            lists.nicks.push_back(std::exchange(buffer, ""));
        } else if (mid(i, 1) != "\n") {
            buffer += mid(i, 1);
        }
    }
    return lists;
}

void CompareLists(const std::string& text) {
    const Lists expected = ListLiterally(text);
    const Lists actual = List(text);
    ASSERT_EQ(actual.emails, expected.emails) << testing::PrintToString(text);
    ASSERT_EQ(actual.nicks, expected.nicks) << testing::PrintToString(text);
    ASSERT_EQ(actual.count, expected.count) << testing::PrintToString(text);
}

const Fragments& NativeFragments() {
    static const Fragments fragments = {"a", "\r", "\n", "\r\n-nick-", "-nick-", "\r\n-"};
    return fragments;
}

TEST(ListNative, EveryShortText_EqualsLiteralLists) {
    ForEveryText(NativeFragments(), 6, CompareLists);
}

TEST(ListNative, RandomLongTexts_EqualLiteralLists) {
    ForRandomTexts(NativeFragments(), 60, 4000, CompareLists);
}

TEST(EntryEnd, Cr_GetsLf) {
    EXPECT_EQ(EntryEnd("\r"), "\r\n");
}
TEST(EntryEnd, Comma_StaysAlone) {
    EXPECT_EQ(EntryEnd(","), ",");
}

TEST(TextLimit, IsWhatTheMessageSays) {
    EXPECT_EQ(kTextLimit, 32000U);
}

struct NativeRow {
    const char* name;
    std::string_view text;
    bool native;
};

class IsNativeTest : public testing::TestWithParam<NativeRow> {};

TEST_P(IsNativeTest, Row) {
    EXPECT_EQ(IsNative(GetParam().text), GetParam().native);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    IsNativeTest,
    testing::Values(NativeRow{"OneEntry", "A1\r\n-nick-\r\nAl\r\n", true},
                    NativeRow{"EntryWithoutNickname", "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n", true},
                    NativeRow{"EntryWithoutAddress", "\r\n-nick-\r\nAl\r\n", true},
                    NativeRow{"NicknameThatHoldsTheWord", "A1\r\n-nick-\r\nx-nick-\r\n", true},
                    NativeRow{"LineFeedInALine", "A1\nx\r\n-nick-\r\nAl\r\n", true},
                    NativeRow{"NoEntry", "-nick-\r\n", true},
                    NativeRow{"Empty", "", false},
                    NativeRow{"List", "A1\r\nA2\r\n", false},
                    NativeRow{"MiddleLineAlone", "-nick-", false},
                    NativeRow{"NoEnd", "A1\r\n-nick-\r\nAl", false},
                    NativeRow{"LoneCrAtTheEnd", "A1\r\n-nick-\r\nAl\r", false},
                    NativeRow{"NicknameMissing", "A1\r\nA2\r\n-nick-\r\nAl\r\n", false},
                    NativeRow{"NicknameTooMany", "A1\r\n-nick-\r\nAl\r\nBo\r\n", false},
                    NativeRow{"ListWithANativeTextBehindIt", "x\r\nA1\r\n-nick-\r\nAl\r\n", false},
                    NativeRow{"TwoMiddleLines", "A1\r\n-nick-\r\n-nick-\r\nAl\r\n", false},
                    NativeRow{"NicknameThatIsTheWord", "A1\r\n-nick-\r\n-nick-\r\n", false},
                    NativeRow{"MiddleLineOfLineFeeds", "A1\n-nick-\nAl\r\n", false}),
    [](const auto& row) { return row.param.name; });

TEST(HasNickLineTest, TheWordIsALineOfItsOwn) {
    const std::vector<std::pair<std::string_view, bool>> rows = {
        {"-nick-", true},
        {"-nick-\r\nAl\r\n", true},
        {"A1\r\n-nick-", true},
        {"A1\r\n-nick-\r\nAl\r\n", true},
        {"x-nick-\r\n-nick-\r\n", true},
        {"", false},
        {"A1\r\n", false},
        {"x-nick-", false},
        {"x-nick-\r\n", false},
        {"-nick-x", false},
        {"A1\n-nick-\r\n", false},
        {"A1\r\n-nick-\n", false},
    };
    for (const auto& [text, has] : rows) {
        EXPECT_EQ(HasNickLine(text), has) << text;
    }
}

}  // namespace
}  // namespace orvik
