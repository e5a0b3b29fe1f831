#include "book/field_names.h"

#include <string>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

TEST(FieldNames, KnowsItsOwnInAnyCase) {
    FieldNames names;
    EXPECT_EQ(names.Count(), static_cast<std::size_t>(field::kKnown));
    EXPECT_EQ(names.Intern("fn"), field::kFn);
    EXPECT_EQ(names.Find("x-ablabel"), field::kAbLabel);
    EXPECT_EQ(names.Text(field::kAbLabel), "X-ABLabel");
    EXPECT_EQ(names.Find("LANGUAGE"), field::kLanguage);
    EXPECT_EQ(names.Count(), static_cast<std::size_t>(field::kKnown));
}

TEST(FieldNames, KeepsTheFirstSpellingOfEachName) {
    FieldNames names;
    for (int i = 0; i < 100000; ++i) {
        const NameId id = names.Intern("x-Own" + std::to_string(i));
        EXPECT_EQ(names.Intern("X-oWN" + std::to_string(i)), id);
    }
    EXPECT_EQ(names.Text(names.Find("X-OWN99999")), "x-Own99999");
    EXPECT_EQ(names.Count(), field::kKnown + 100000U);
    EXPECT_EQ(names.Find("x-none"), FieldNames::kNone);
}

TEST(SameName, ComparesAsciiLettersOnly) {
    EXPECT_TRUE(SameName("aZ-1", "Az-1"));
    EXPECT_FALSE(SameName("a", "ab"));
    EXPECT_FALSE(SameName("[", "{"));
    EXPECT_FALSE(SameName("\xE4", "\xC4"));
}

}  // namespace
}  // namespace orvik::book
