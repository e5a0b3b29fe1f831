#include "app/text.h"

#include "unit/failure.h"

namespace orvik {
namespace {

using test::FailureOf;

TEST(Mid, RangeInside_IsTaken) {
    EXPECT_EQ(Mid("abc", 1, 2), "ab");
}
TEST(Mid, RangeBeyondEnd_IsShorter) {
    EXPECT_EQ(Mid("abc", 2, 5), "bc");
}
TEST(Mid, StartBehindLast_IsEmpty) {
    EXPECT_EQ(Mid("abc", 4, 1), "");
}
TEST(Mid, StartFarBehindEnd_IsEmpty) {
    EXPECT_EQ(Mid("abc", 100, 1), "");
}
TEST(Mid, NoLength_GoesToEnd) {
    EXPECT_EQ(Mid("abc", 2), "bc");
}
TEST(Mid, LengthZero_IsEmpty) {
    EXPECT_EQ(Mid("abc", 2, 0), "");
}
TEST(Mid, EmptyText_IsEmpty) {
    EXPECT_EQ(Mid("", 1), "");
}

struct FindRow {
    const char* name;
    std::string_view text;
    std::string_view wanted;
    std::size_t position;
    std::size_t found;
};

TEST(FindNear, EveryLengthAndPlace) {
    for (std::size_t length = 0; length < 70; ++length) {
        for (std::size_t start = 0; start <= length; ++start) {
            std::string text(length, 'a');
            EXPECT_EQ(FindNear(text, ',', start), std::string::npos);
            for (std::size_t i = 0; i < length; ++i) {
                text[i] = ',';
                EXPECT_EQ(FindNear(text, ',', start), text.find(',', start));
                if (i >= 3) {
                    text[i - 3] = 'a';
                }
            }
        }
    }
}

class FindFromTest : public testing::TestWithParam<FindRow> {};

TEST_P(FindFromTest, Row) {
    const FindRow& row = GetParam();
    EXPECT_EQ(FindFrom(row.text, row.wanted, row.position), row.found);
}

INSTANTIATE_TEST_SUITE_P(,
                         FindFromTest,
                         testing::Values(FindRow{"AtPosition_IsFound", "abab", "ab", 1, 1},
                                         FindRow{"BehindPosition_IsFound", "abab", "ab", 2, 3},
                                         FindRow{"OnlyBefore_IsOnePastEnd", "abcd", "ab", 2, 5},
                                         FindRow{"Missing_IsOnePastEnd", "abc", "x", 1, 4},
                                         FindRow{"CutShort_IsOnePastEnd", "ab\r", "\r\n", 1, 4},
                                         FindRow{"FromOnePastEnd_IsOnePastEnd", "abc", "a", 4, 4},
                                         FindRow{"FromFarBehind_IsOnePastEnd", "abc", "a", 9, 4},
                                         FindRow{"EmptyText_IsOne", "", "a", 1, 1}),
                         [](const auto& row) { return row.param.name; });

struct TakeRow {
    const char* name;
    std::string_view text;
    std::size_t position;
    std::string_view taken;
    std::size_t stop;
};

class TakeUntilTest : public testing::TestWithParam<TakeRow> {};

TEST_P(TakeUntilTest, Row) {
    std::size_t position = GetParam().position;
    EXPECT_EQ(TakeUntil(GetParam().text, position, "\r\n"), GetParam().taken);
    EXPECT_EQ(position, GetParam().stop);
}

INSTANTIATE_TEST_SUITE_P(,
                         TakeUntilTest,
                         testing::Values(TakeRow{"Terminator_StopsBeforeIt", "ab\r\n", 1, "ab", 3},
                                         TakeRow{"FromInside_TakesTheRest", "ab\r\n", 2, "b", 3},
                                         TakeRow{"OnTerminator_IsEmpty", "ab\r\n", 3, "", 3},
                                         TakeRow{"NoTerminator_GoesToTheEnd", "ab\r", 1, "ab\r", 4},
                                         TakeRow{"OnePastEnd_IsEmpty", "ab", 3, "", 3},
                                         TakeRow{"FarBehindEnd_IsEmpty", "ab", 9, "", 3},
                                         TakeRow{"EmptyText_IsEmpty", "", 1, "", 1}),
                         [](const auto& row) { return row.param.name; });

TEST(ToLower, AsciiLetters_BecomeLower) {
    EXPECT_EQ(ToLower("Book-AZ.LDIF"), "book-az.ldif");
}
TEST(ToLower, NeighboursOfLetters_StayAsTheyAre) {
    EXPECT_EQ(ToLower("@[`{"), "@[`{");
}
TEST(ToLower, BytesAbove127_StayAsTheyAre) {
    EXPECT_EQ(ToLower("\xC4\xDC"), "\xC4\xDC");
}

TEST(HasEnding, OtherCase_Counts) {
    EXPECT_TRUE(HasEnding("BOOK.LDIF", "ldif"));
}
TEST(HasEnding, NoDot_Counts) {
    EXPECT_TRUE(HasEnding("canv", "nv"));
}
TEST(HasEnding, LongerEnding_Counts) {
    EXPECT_TRUE(HasEnding("x.shtml", "html"));
}
TEST(HasEnding, WholeName_Counts) {
    EXPECT_TRUE(HasEnding("ldif", "ldif"));
}
TEST(HasEnding, ShorterName_DoesNotCount) {
    EXPECT_FALSE(HasEnding("dif", "ldif"));
}
TEST(HasEnding, OtherEnding_DoesNotCount) {
    EXPECT_FALSE(HasEnding("book.ldi", "ldif"));
}
TEST(HasEnding, TextInsideOnly_DoesNotCount) {
    EXPECT_FALSE(HasEnding("ldif.dat", "ldif"));
}

TEST(CutEnd, LongerText_LosesItsEnd) {
    std::string text = "A1\r\n";
    CutEnd(text, 2);
    EXPECT_EQ(text, "A1");
}

TEST(CutEnd, TextOfThatLength_IsEmpty) {
    std::string text = "\r\n";
    CutEnd(text, 2);
    EXPECT_EQ(text, "");
}

TEST(CutEnd, ShorterText_FailsWith5AndStays) {
    std::string text = "a";
    EXPECT_EQ(FailureOf([&] { CutEnd(text, 2); }), 5);
    EXPECT_EQ(text, "a");
}

struct WithoutRow {
    const char* name;
    std::string_view text;
    std::string_view appended;
};

class AppendWithoutTest : public testing::TestWithParam<WithoutRow> {};

TEST_P(AppendWithoutTest, Row) {
    std::string to = "x";
    AppendWithout(to, GetParam().text, '\n');
    EXPECT_EQ(to, "x" + std::string(GetParam().appended));
}

INSTANTIATE_TEST_SUITE_P(,
                         AppendWithoutTest,
                         testing::Values(WithoutRow{"NoneInside_IsAppendedWhole", "ab", "ab"},
                                         WithoutRow{"AtStart_IsDropped", "\nab", "ab"},
                                         WithoutRow{"AtEnd_IsDropped", "ab\n", "ab"},
                                         WithoutRow{"Several_AreDropped", "\n\na\n\nb\n", "ab"},
                                         WithoutRow{"NothingElse_AppendsNothing", "\n\n", ""},
                                         WithoutRow{"Empty_AppendsNothing", "", ""}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace orvik
