#include "book/csv_layout.h"

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

TEST(CsvLayout, HasTheColumnsOfAProgram) {
    const CsvLayout outlook(CsvProgram::Outlook, {});
    EXPECT_EQ(outlook.Columns().size(), 92U);
    EXPECT_EQ(outlook.Columns()[14].Header, "Business Country/Region");
    EXPECT_EQ(outlook.Columns()[91].Header, "Web Page");
    EXPECT_EQ(outlook.Find("street.home"), 15U);
    EXPECT_EQ(outlook.Find("nickname"), CsvLayout::kNone);
    const CsvLayout thunderbird(CsvProgram::Thunderbird, {});
    EXPECT_EQ(thunderbird.Columns().size(), 37U);
    EXPECT_EQ(thunderbird.Columns()[36].Header, "Notes");
}

TEST(CsvLayout, NumbersTheColumnsOfGoogle) {
    const CsvLayout none(CsvProgram::Google, {});
    EXPECT_EQ(none.Columns().size(), 17U);
    const CsvLayout some(CsvProgram::Google, {2, 1, 1, 0, 1});
    EXPECT_EQ(some.Columns().size(), 17U + 4U + 2U + 9U + 2U);
    EXPECT_EQ(some.Columns()[17].Header, "E-mail 1 - Label");
    EXPECT_EQ(some.Columns()[20].Header, "E-mail 2 - Value");
    EXPECT_EQ(some.Find("emailN", 2), 20U);
    EXPECT_EQ(some.Find("emailN", 3), CsvLayout::kNone);
    EXPECT_EQ(some.Columns()[31].Header, "Address 1 - Extended Address");
    EXPECT_EQ(some.Columns()[33].Header, "Website 1 - Value");
}

}  // namespace
}  // namespace orvik::book
