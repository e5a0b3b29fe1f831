#include "book/match/names.h"

#include <array>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

struct Row {
    std::string_view One;
    std::string_view Other;
    bool Holds = false;
};

TEST(IsOneSlipTest, OneLetterOrTwoThatChangedPlaces) {
    constexpr std::array kRows = {Row{"berg", "brg", true},
                                  Row{"berg", "bergg", true},
                                  Row{"berg", "borg", true},
                                  Row{"berg", "ebrg", true},
                                  Row{"berg", "begr", true},
                                  Row{"m\u00FCller", "muller", true},
                                  Row{"berg", "berg", false},
                                  Row{"berg", "bo", false},
                                  Row{"berg", "bogg", false},
                                  Row{"berg", "gerb", false},
                                  Row{"jan", "jon", true},
                                  Row{"li", "lo", false},
                                  Row{"", "a", false}};
    for (const Row& row : kRows) {
        EXPECT_EQ(IsOneSlip(row.One, row.Other), row.Holds) << row.One << " / " << row.Other;
        EXPECT_EQ(IsOneSlip(row.Other, row.One), row.Holds) << row.Other << " / " << row.One;
    }
}

TEST(AreCompatibleTest, WordsInitialsAndSlips) {
    constexpr std::array kRows = {Row{"Ben Berg", "berg, BEN", true},
                                  Row{"B. Berg", "Ben Berg", true},
                                  Row{"Ben Berg", "Ben Maria Berg", true},
                                  Row{"Ben", "Ben Berg", true},
                                  Row{"Ben M. Berg", "B. Maria Berg", true},
                                  Row{"Ben Brg", "Ben Berg", true},
                                  Row{"Bneja Berg", "Benja Berg", true},
                                  Row{"van der Berg", "Vanderberg", true},
                                  Row{"", "Ben Berg", true},
                                  Row{"Sales", "Ben Berg", false},
                                  Row{"Anna Berg", "Ben Berg", false},
                                  Row{"B. Berg", "Anna Berg", false},
                                  Row{"B. B.", "Ben Berg", false},
                                  Row{"Ada Berg", "Aba Berg", true},
                                  Row{"Li Berg", "Lo Berg", false},
                                  Row{"A. Berg", "B. Berg", false},
                                  Row{"Room 101", "Room 102", false},
                                  Row{"Bn Brg", "Ben Berg", false},
                                  Row{"Ben Brgg", "Ben Berg", false},
                                  Row{"Ben Lee", "Ben Berg", false},
                                  Row{"B. B. Berg", "Ben Berg", true}};
    for (const Row& row : kRows) {
        const FoldedName one = FoldName(row.One);
        const FoldedName other = FoldName(row.Other);
        EXPECT_EQ(AreCompatible(one, other), row.Holds) << row.One << " / " << row.Other;
        EXPECT_EQ(AreCompatible(other, one), row.Holds) << row.Other << " / " << row.One;
    }
}

TEST(AreCompatibleTest, VeryManyWordsAreComparedAsAWhole) {
    std::string many;
    for (int i = 0; i < 10'000; ++i) {
        many += "word" + std::to_string(i) + " ";
    }
    EXPECT_TRUE(AreCompatible(FoldName(many), FoldName(many)));
    EXPECT_FALSE(AreCompatible(FoldName(many), FoldName(many + "x")));
}

}  // namespace
}  // namespace orvik::book
