#include "listops/upper_case.h"

#include <string>

#include "unit/literal_upper_case.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

struct UpperCaseRow {
    const char* Name;
    std::string Text;
    std::string Upper;
};

class ToUpperUtf8Test : public testing::TestWithParam<UpperCaseRow> {};

TEST_P(ToUpperUtf8Test, Row) {
    EXPECT_EQ(ToUpper(GetParam().Text, Encoding::Utf8), GetParam().Upper);
    EXPECT_EQ(ToUpper(GetParam().Upper, Encoding::Utf8), GetParam().Upper);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    ToUpperUtf8Test,
    testing::Values(
        UpperCaseRow{"Nothing", "", ""},
        UpperCaseRow{"Ascii", "az AZ 09 @[`{\x7F\r\n", "AZ AZ 09 @[`{\x7F\r\n"},
        // U+00E9
        UpperCaseRow{"Accent", "caf\xC3\xA9\r\n", "CAF\xC3\x89\r\n"},
        // U+00F7, between letters that have capitals
        UpperCaseRow{"DivisionSign_Stands", "\xC3\xB6\xC3\xB7\xC3\xB8", "\xC3\x96\xC3\xB7\xC3\x98"},
        // U+00B5 -> U+039C
        UpperCaseRow{"MicroSign_IsAGreekLetter", "\xC2\xB5", "\xCE\x9C"},
        // U+00FF -> U+0178
        UpperCaseRow{"YWithDiaeresis_IsFarFromItsCapital", "\xC3\xBF", "\xC5\xB8"},
        // U+0131, U+017F
        UpperCaseRow{"DotlessI_IsI", "\xC4\xB1x", "IX"},
        UpperCaseRow{"LongS_IsS", "\xC5\xBFx", "SX"},
        // U+00DF, U+0149, U+01F0, U+0390, U+03B0
        UpperCaseRow{"SharpS_Stands", "\xC3\x9F", "\xC3\x9F"},
        UpperCaseRow{"TwoLetters_Stand",
                     "\xC5\x89\xC7\xB0\xCE\x90\xCE\xB0",
                     "\xC5\x89\xC7\xB0\xCE\x90\xCE\xB0"},
        // U+0101 U+0100, U+017E U+017D, U+0180 -> U+0243
        UpperCaseRow{"Pairs", "\xC4\x81\xC5\xBE\xC6\x80", "\xC4\x80\xC5\xBD\xC9\x83"},
        // U+0130 has a lower case only
        UpperCaseRow{"CapitalIWithDot_Stands", "\xC4\xB0", "\xC4\xB0"},
        // U+01C5, U+01C6 -> U+01C4
        UpperCaseRow{"Digraphs", "\xC7\x85\xC7\x86", "\xC7\x84\xC7\x84"},
        // U+019B, U+023F, U+0250, whose capitals stand behind U+04FF
        UpperCaseRow{"FarCapitals_Stand", "\xC6\x9B\xC8\xBF\xC9\x90", "\xC6\x9B\xC8\xBF\xC9\x90"},
        // U+03C3, U+03C2, U+03AC, U+03CE
        UpperCaseRow{
            "Greek", "\xCF\x83\xCF\x82\xCE\xAC\xCF\x8E", "\xCE\xA3\xCE\xA3\xCE\x86\xCE\x8F"},
        // U+044F, U+0451, U+04CF, U+04FF
        UpperCaseRow{
            "Cyrillic", "\xD1\x8F\xD1\x91\xD3\x8F\xD3\xBF", "\xD0\xAF\xD0\x81\xD3\x80\xD3\xBE"},
        // U+0501, U+0561, U+1E01, U+24D0, U+FF41, U+10428
        UpperCaseRow{"BehindTheRange_Stand",
                     "\xD4\x81\xD5\xA1\xE1\xB8\x81\xE2\x93\x90\xEF\xBD\x81\xF0\x90\x90\xA8",
                     "\xD4\x81\xD5\xA1\xE1\xB8\x81\xE2\x93\x90\xEF\xBD\x81\xF0\x90\x90\xA8"},
        UpperCaseRow{"BytesThatAreNoUtf8_Stand", "a\xE9z\xC3", "A\xE9Z\xC3"}),
    [](const auto& row) { return row.param.Name; });

TEST(ToUpper, EveryByteOfWindows1252_EqualsTheListOfLetters) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(static_cast<unsigned char>(byte)));
        EXPECT_EQ(ToUpper(text, Encoding::Windows1252),
                  test::UpperLiterally(text, Encoding::Windows1252))
            << byte;
    }
}

TEST(ToUpper, BytesOfWindows1252_AreLettersOfTheirOwn) {
    EXPECT_EQ(ToUpper("\xC3\xA9 \xE9", Encoding::Windows1252), "\xC3\xA9 \xC9");
    EXPECT_EQ(ToUpper("\x83\xB5\xDF\xF7", Encoding::Windows1252), "\x83\xB5\xDF\xF7");
}

}  // namespace
}  // namespace orvik
