#include "book/match/side_by_side.h"

#include <numeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/book/match/cards.h"

namespace orvik::book {
namespace {

using test::CardsOf;

// "= FN Al|Al" for each row; "=" equal, "~" in other spellings, "!" different, "+" not in all; "^"
// behind a value says that it is carried, "-" that it goes, "?" that nobody knows.
std::string Shown(const SideBySide& side) {
    constexpr std::string_view kAlike = "=~!+";
    constexpr std::array<std::string_view, 4> kFate = {"", "^", "-", "?"};
    const std::size_t records = side.From->Contacts.size();
    std::string text;
    for (const SideRow& row : side.Rows) {
        text += kAlike[static_cast<std::size_t>(row.How)];
        text += row.IsOfRecord ? "* " : " ";
        text += side.From->Names.Text(row.Values.front().Field.Name);
        for (std::uint32_t i = 0; i < records; ++i) {
            text += i == 0 ? " " : "|";
            for (const SideValue& value : row.Values) {
                if (value.Record == i) {
                    text += value.Field.Value;
                    text += kFate[static_cast<std::size_t>(value.Becomes)];
                }
            }
        }
        text += "\n";
    }
    return text;
}

std::string Compared(const std::string& cards) {
    const test::ReadBook read(ReadVCard, cards);
    std::vector<std::uint32_t> all(read.book.Contacts.size());
    std::iota(all.begin(), all.end(), 0U);
    const std::string before = test::Shown(read.book);
    const std::string shown = Shown(Compare(read.book, all));
    EXPECT_EQ(test::Shown(read.book), before);
    return shown;
}

TEST(SideBySideTest, EqualValuesStandBesideEachOther) {
    EXPECT_EQ(Compared(CardsOf("FN:Al|EMAIL:a@b.c|TEL:1", "TEL:1|EMAIL:a@b.c|FN:Al")),
              "= FN Al|Al\n= EMAIL a@b.c|a@b.c\n= TEL 1|1\n");
}

TEST(SideBySideTest, OtherSpellingsAreCarried) {
    EXPECT_EQ(Compared(CardsOf("FN:Jorg|TEL:15550100", "FN:J\u00F6rg|TEL:+1 555-0100")),
              "~ FN Jorg^|J\u00F6rg\n~ TEL 15550100|+1 555-0100^\n");
    EXPECT_EQ(Compared(CardsOf("NICKNAME:x,y", "NICKNAME:Y,z")),
              "+ NICKNAME x|\n~ NICKNAME y|Y^\n+ NICKNAME |z\n");
}

TEST(SideBySideTest, OfSingleValuesOneWins) {
    EXPECT_EQ(Compared(CardsOf("FN:B. Berg|BDAY:1970", "FN:Ben Berg", "FN:Ben Xaver Berg|BDAY:-")),
              "! FN B. Berg^|Ben Berg^|Ben Xaver Berg\n! BDAY 1970||--\n");
}

TEST(SideBySideTest, WhatEachHasAloneHasARowOfItsOwn) {
    EXPECT_EQ(Compared(CardsOf("FN:Al|EMAIL:a@b.c|EMAIL:a@b.c", "FN:Al|EMAIL:d@e.f|X-OWN:1|NOTE:")),
              "= FN Al|Al\n+ EMAIL a@b.c|\n+ EMAIL a@b.c|\n+ EMAIL |d@e.f\n+ X-OWN |1\n");
}

TEST(SideBySideTest, WhatNamesTheRecordsComesLast) {
    EXPECT_EQ(Compared(CardsOf("UID:1|REV:5|FN:Al", "UID:2|REV:6|FN:Al")),
              "= FN Al|Al\n!* REV 5|6-\n!* UID 1|2^\n");
}

TEST(SideBySideTest, WhatWasCarriedBeforeStaysCarried) {
    EXPECT_EQ(Compared(CardsOf("FN:Ben Berg|X-ORVIK-MERGED-FN:B. Berg", "FN:B. Berg")),
              "! FN Ben Berg|B. Berg^\n+ X-ORVIK-MERGED-FN B. Berg^|\n");
}

TEST(SideBySideTest, NobodyKnowsWhatBecomesOfMembers) {
    const std::string list = "FN:Crew|X-ADDRESSBOOKSERVER-KIND:group|X-ADDRESSBOOKSERVER-MEMBER:";
    EXPECT_EQ(Compared(CardsOf(list + "a@b.c", list + "d@e.f")),
              "= FN Crew|Crew\n+ X-ADDRESSBOOKSERVER-MEMBER a@b.c?|\n"
              "+ X-ADDRESSBOOKSERVER-MEMBER |d@e.f?\n=* X-ADDRESSBOOKSERVER-KIND group|group\n");
}

// Linear, whatever the records hold.
TEST(SideBySideTest, ThousandsOfFieldsAreCompared) {
    std::string fields;
    std::string others;
    for (int i = 0; i < 4'000; ++i) {
        fields += "NOTE:" + std::to_string(i % 2'000) + "|X-" + std::to_string(i) + ":1|";
        others += "NOTE:" + std::to_string(i) + "|X-" + std::to_string(i) + ":1|";
    }
    const auto card = [](std::string text) {
        std::replace(text.begin(), text.end(), '|', '\n');
        return "BEGIN:VCARD\nVERSION:3.0\n" + text + "END:VCARD\n";
    };
    const test::ReadBook read(ReadVCard, card(fields) + card(others));
    const std::vector<std::uint32_t> both = {0, 1};
    EXPECT_EQ(Compare(read.book, both).Rows.size(), 10'000U);
}

}  // namespace
}  // namespace orvik::book
