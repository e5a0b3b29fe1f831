#include "settings/numbers.h"

#include <string>

#include "unit/failure.h"

namespace orvik {
namespace {

using test::FailureOf;

struct NumberRow {
    const char* name;
    std::string_view text;
    double number;
};

class ToNumberTest : public testing::TestWithParam<NumberRow> {};

TEST_P(ToNumberTest, Row) {
    EXPECT_EQ(ToNumber(GetParam().text), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(,
                         ToNumberTest,
                         testing::Values(NumberRow{"Digits_AreANumber", "5", 5},
                                         NumberRow{"BlanksAround_AreIgnored", " 4.6 ", 4.6},
                                         NumberRow{"PlusSign_IsTaken", "+5", 5},
                                         NumberRow{"MinusSign_IsTaken", "-5.25", -5.25},
                                         NumberRow{"NothingBeforePoint_IsTaken", ".5", 0.5},
                                         NumberRow{"NothingBehindPoint_IsTaken", "5.", 5},
                                         NumberRow{"LeadingZeros_AreTaken", "005", 5},
                                         NumberRow{"Exponent_IsTaken", "1e3", 1000},
                                         NumberRow{"CapitalExponent_IsTaken", "1E3", 1000},
                                         NumberRow{"SignedExponent_IsTaken", "25e-1", 2.5},
                                         NumberRow{"PlusInExponent_IsTaken", "+1.5e+2", 150},
                                         NumberRow{"Zero_IsTaken", "0", 0}),
                         [](const auto& row) { return row.param.name; });

struct NoNumberRow {
    const char* name;
    std::string_view text;
    int failure;
};

class NoNumberTest : public testing::TestWithParam<NoNumberRow> {};

TEST_P(NoNumberTest, Row) {
    const std::string_view text = GetParam().text;
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ToNumber(text)); }), GetParam().failure);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ToInteger(text)); }), GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(,
                         NoNumberTest,
                         testing::Values(NoNumberRow{"Empty_Is13", "", 13},
                                         NoNumberRow{"BlanksOnly_Is13", "  ", 13},
                                         NoNumberRow{"Word_Is13", "True", 13},
                                         NoNumberRow{"LettersBehind_Is13", "5x", 13},
                                         NoNumberRow{"LettersBefore_Is13", "x5", 13},
                                         NoNumberRow{"BlankInside_Is13", "5 6", 13},
                                         NoNumberRow{"BlankBehindSign_Is13", "- 5", 13},
                                         NoNumberRow{"BlankBehindPlus_Is13", "+ 5", 13},
                                         NoNumberRow{"SignOnly_Is13", "+", 13},
                                         NoNumberRow{"MinusOnly_Is13", "-", 13},
                                         NoNumberRow{"TwoSigns_Is13", "+-5", 13},
                                         NoNumberRow{"TwoPluses_Is13", "++5", 13},
                                         NoNumberRow{"PointOnly_Is13", ".", 13},
                                         NoNumberRow{"TwoPoints_Is13", "1.2.3", 13},
                                         NoNumberRow{"Comma_Is13", "1,5", 13},
                                         NoNumberRow{"ExponentWithoutDigits_Is13", "1e", 13},
                                         NoNumberRow{"ExponentOnly_Is13", "e3", 13},
                                         NoNumberRow{"Hexadecimal_Is13", "0x10", 13},
                                         NoNumberRow{"Infinity_Is13", "inf", 13},
                                         NoNumberRow{"SignedInfinity_Is13", "+infinity", 13},
                                         NoNumberRow{"NotANumber_Is13", "nan", 13},
                                         NoNumberRow{"Tab_Is13", "\t5", 13},
                                         NoNumberRow{"LineBreak_Is13", "5\r\n", 13},
                                         NoNumberRow{"ZeroByte_Is13", {"5\0", 2}, 13},
                                         NoNumberRow{"TooLarge_Is6", "1e999", 6}),
                         [](const auto& row) { return row.param.name; });

struct IntegerRow {
    const char* name;
    std::string_view text;
    int number;
};

class ToIntegerTest : public testing::TestWithParam<IntegerRow> {};

TEST_P(ToIntegerTest, Row) {
    EXPECT_EQ(ToInteger(GetParam().text), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(,
                         ToIntegerTest,
                         testing::Values(IntegerRow{"HalfAboveEven_GoesDown", "4.5", 4},
                                         IntegerRow{"HalfAboveOdd_GoesUp", "5.5", 6},
                                         IntegerRow{"NegativeHalf_GoesToEven", "-1.5", -2},
                                         IntegerRow{"MinusOneHalf_IsZero", "-.5", 0},
                                         IntegerRow{"AboveHalf_GoesUp", "4.6", 5},
                                         IntegerRow{"BelowHalf_GoesDown", "4.4", 4},
                                         IntegerRow{"Largest_IsTaken", "32767", 32767},
                                         IntegerRow{"RoundsToLargest_IsTaken", "32767.4", 32767},
                                         IntegerRow{"Smallest_IsTaken", "-32768", -32768},
                                         IntegerRow{
                                             "RoundsToSmallest_IsTaken", "-32768.5", -32768}),
                         [](const auto& row) { return row.param.name; });

TEST(ToInteger, OutsideSixteenBits_FailsWith6) {
    for (const std::string_view text : {"32768", "32767.5", "-32769", "-32768.6", "1e300"}) {
        EXPECT_EQ(FailureOf([&] { static_cast<void>(ToInteger(text)); }), 6) << text;
    }
}

}  // namespace
}  // namespace orvik
