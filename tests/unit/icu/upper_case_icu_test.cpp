// What the engine knows of Unicode, beside what ICU knows.

#include <string>

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "app/encoding.h"
#include "listops/upper_case.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

constexpr UChar32 kLastWithUpperCase = 0x4FF;

std::string Utf8Of(const icu::UnicodeString& letters) {
    std::string bytes;
    return letters.toUTF8String(bytes);
}

std::string Utf8Of(UChar32 letter) {
    return Utf8Of(icu::UnicodeString(letter));
}

std::string InHex(UChar32 letter) {
    return testing::PrintToString(static_cast<char32_t>(letter));
}

TEST(ToUpperAndIcu, EachOfTheFirst1280Letters_HasItsSimpleUpperCaseIfThatIsOneOfThem) {
    for (UChar32 letter = 0; letter <= kLastWithUpperCase; ++letter) {
        const UChar32 simple = u_toupper(letter);
        const UChar32 expected = simple <= kLastWithUpperCase ? simple : letter;
        EXPECT_EQ(ToUpper(Utf8Of(letter), Encoding::Utf8), Utf8Of(expected)) << InHex(letter);
    }
}

TEST(ToUpperAndIcu, LettersWhoseUpperCaseIsSeveral_Stand) {
    int found = 0;
    for (UChar32 letter = 0; letter <= kLastWithUpperCase; ++letter) {
        if (icu::UnicodeString(letter).toUpper(icu::Locale::getRoot()).length() > 1) {
            ++found;
            EXPECT_EQ(ToUpper(Utf8Of(letter), Encoding::Utf8), Utf8Of(letter)) << InHex(letter);
        }
    }
    EXPECT_EQ(found, 5);
}

TEST(ToUpperAndIcu, EachLetterBehindThem_Stands) {
    constexpr UChar32 kRow = 0x100;
    for (UChar32 row = kLastWithUpperCase + 1; row <= UCHAR_MAX_VALUE; row += kRow) {
        icu::UnicodeString letters;
        for (UChar32 letter = row; letter < row + kRow && !U_IS_SURROGATE(row); ++letter) {
            letters.append(letter);
        }
        const std::string text = Utf8Of(letters);
        EXPECT_EQ(ToUpper(text, Encoding::Utf8), text) << InHex(row);
    }
}

TEST(EncodingOfAndIcu, EachLetter_IsUtf8ButForNoncharactersAndThoseOfTheTextBox) {
    for (UChar32 letter = 0; letter <= UCHAR_MAX_VALUE; ++letter) {
        if (U_IS_SURROGATE(letter)) {
            continue;
        }
        const bool reserved = U_IS_UNICODE_NONCHAR(letter) || letter == kLineSeparator ||
                              letter == kParagraphSeparator || letter == kLineFeedSign;
        ASSERT_EQ(EncodingOf(Utf8Of(letter)), reserved ? Encoding::Windows1252 : Encoding::Utf8)
            << InHex(letter);
    }
}

}  // namespace
}  // namespace orvik
