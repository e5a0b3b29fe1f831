#include "book/match/matches.h"

#include <span>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/book/match/cards.h"

namespace orvik::book {
namespace {

using test::CardsOf;
using test::Found;

// Two cards, and what is said of them.
struct Row {
    std::string_view One;
    std::string_view Other;
    std::string_view Found;
};

void Check(std::span<const Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(Found(CardsOf(row.One, row.Other)), row.Found) << row.One << " / " << row.Other;
        // Which one comes first does not matter.
        EXPECT_EQ(Found(CardsOf(row.Other, row.One)), row.Found) << row.Other << " / " << row.One;
    }
}

TEST(MatchesTest, SameAreTheFoldedValues) {
    constexpr std::string_view kSame = "merge same 0 1";
    constexpr std::array kRows = {
        Row{"FN:Al|EMAIL:a@b.c", "FN:Al|EMAIL:a@b.c", kSame},
        Row{"FN:Al|EMAIL:a@b.c|TEL:1", "TEL:1|EMAIL:a@b.c|FN:Al", kSame},
        Row{"FN:Al|EMAIL:a@b.c", "FN: AL |EMAIL:A@B.c", kSame},
        Row{"FN:Ben Berg|EMAIL:a@b.c", "FN:Berg\\, Ben|EMAIL:a@b.c", kSame},
        Row{"FN:J\u00F6rg|EMAIL:a@b.c", "FN:Jorg|EMAIL:a@b.c", kSame},
        Row{"FN:Al|TEL:+1 555-0100", "FN:Al|TEL:(1) 5550100", kSame},
        Row{"FN:Al|EMAIL:a@b\u00FCcher.example", "FN:Al|EMAIL:a@xn--bcher-kva.example", kSame},
        Row{"FN:Al|EMAIL:a@b.c|NOTE:|ADR:;;;;;;", "FN:Al|EMAIL:a@b.c", kSame},
        Row{"FN:Al|EMAIL:a@b.c|UID:1|REV:2", "FN:Al|EMAIL:a@b.c|UID:2|REV:3", kSame},
        Row{"FN:Al Lee|N:Lee;Al;;;|EMAIL:a@b.c", "FN:Al Lee|EMAIL:a@b.c", kSame},
        Row{"FN:a@b.c|EMAIL:a@b.c", "EMAIL:a@b.c", kSame},
        Row{"FN:Al|NICKNAME:x,y", "FN:Al|NICKNAME:y|NICKNAME:X", kSame},
        Row{"FN:Al|BDAY:1980-04-12", "FN:Al|BDAY:19800412T000000Z", kSame},
        Row{"FN:Al|BDAY:1980-04-12", "FN:Al|BDAY:19800412", kSame},
        Row{"FN:Al|TEL;TYPE=home:1", "FN:Al|TEL;TYPE=work:1", kSame},
        Row{"FN:Al|PHOTO;ENCODING=b:AAAA", "FN:Al|PHOTO;ENCODING=b:aaaa", "ask name 0 1"},
        Row{"FN:Al|TEL:1|ADR:;;1 Road;X;;;", "FN:Al|TEL:1|ADR:;;1  road;X", kSame},
        Row{"FN:Al|TEL:1|X-ANNIVERSARY:2001-02-03", "FN:Al|TEL:1|ANNIVERSARY:20010203", kSame},
        Row{"FN:Al|TEL:1|X-ORVIK-MERGED-FN:Al", "FN:Al|TEL:1", kSame},
        Row{"NOTE:", "NOTE:", ""},
        Row{"FN:Al", "FN:Al", kSame},
        Row{"TEL:5", "TEL:5", kSame},
        Row{"FN:Al|TEL:5", "FN:Bo|TEL:5", ""},
        Row{"FN:Al", "FN:Bo", ""}};
    Check(kRows);
}

TEST(MatchesTest, ContainedNeedAnAddressOrAPhone) {
    constexpr std::string_view kMerge = "merge contained 0 1";
    constexpr std::array kRows = {
        Row{"FN:Al|EMAIL:a@b.c|NOTE:x", "FN:Al|EMAIL:a@b.c", kMerge},
        Row{"FN:Al|TEL:1|NOTE:x", "FN:Al|TEL:1", kMerge},
        Row{"FN:Al|EMAIL:a@b.c", "EMAIL:a@b.c", kMerge},
        Row{"FN:Al|EMAIL:a@b.c|EMAIL:d@e.f", "FN:AL|EMAIL:D@e.f", kMerge},
        Row{"FN:Al|EMAIL:a@b.c|NOTE:x", "FN:Al", "ask name 0 1"},
        Row{"FN:Al|EMAIL:a@b.c|NOTE:x", "FN:Al|NOTE:x", "ask name 0 1"},
        Row{"FN:Al|TEL:1", "TEL:1", "ask contained 0 1"},
        Row{"FN:Al Lee|EMAIL:a@b.c|NOTE:x", "FN:A. Lee|EMAIL:a@b.c", "ask agree 0 1"},
        Row{"FN:Al|EMAIL:a@b.c|NOTE:x", "FN:Al|EMAIL:a@b.c|NOTE:y", "ask agree 0 1"}};
    Check(kRows);
}

TEST(MatchesTest, AgreeShareAnAddressAndNothingSpeaksAgainstIt) {
    constexpr std::string_view kAsk = "ask agree 0 1";
    constexpr std::array kRows = {
        Row{"FN:B. Berg|EMAIL:a@b.c|TEL:1", "FN:Ben Berg|EMAIL:a@b.c|TEL:2", kAsk},
        Row{"FN:Ben Berg|EMAIL:a@b.c|TEL:1", "FN:Ben Brg|EMAIL:a@b.c", kAsk},
        Row{"FN:Ben|EMAIL:a@b.c|TEL:1", "EMAIL:a@b.c|TEL:2", kAsk},
        Row{"FN:Ben|EMAIL:a@b.c|BDAY:1980-04-12", "FN:Ben|EMAIL:a@b.c|BDAY:--0412", kAsk},
        Row{"FN:Ben|EMAIL:a@b.c|BDAY:1980-04-12", "FN:Ben|EMAIL:a@b.c|BDAY:1980", kAsk},
        Row{"FN:Ben|EMAIL:a@b.c|BDAY:1980-04-12",
            "FN:Ben|EMAIL:a@b.c|BDAY:1981-04-12",
            "keep address 0 1"},
        Row{"FN:Ben|EMAIL:a@b.c|X-ANNIVERSARY:2001-01-01",
            "FN:Ben|EMAIL:a@b.c|X-ANNIVERSARY:2001-01-02",
            "keep address 0 1"},
        Row{"FN:Sales|EMAIL:a@b.c|TEL:1", "FN:Ben Berg|EMAIL:a@b.c", "keep address 0 1"},
        Row{"FN:Li Berg|EMAIL:a@b.c", "FN:Lo Berg|EMAIL:a@b.c", "keep address 0 1"},
        Row{"FN:Ben Berg|EMAIL:a@b.c|TEL:1", "FN:Ben Brg|EMAIL:a@b.d", ""}};
    Check(kRows);
    EXPECT_EQ(Found(CardsOf(kRows[0].One, kRows[0].Other), true), "merge agree 0 1");
    EXPECT_EQ(Found(CardsOf(kRows[5].One, kRows[5].Other), true), "keep address 0 1");
}

TEST(MatchesTest, NamesAlone) {
    constexpr std::array kRows = {
        Row{"FN:Ben Berg|EMAIL:a@b.c", "FN:Berg\\, Ben|EMAIL:d@e.f", "keep name 0 1"},
        Row{"FN:Ben Berg|EMAIL:a@b.c|TEL:1", "FN:Ben Berg|EMAIL:d@e.f|TEL:1", "ask name 0 1"},
        Row{"FN:Ben Berg|TEL:1|NOTE:x", "FN:Ben Berg|TEL:1|NOTE:y", "ask name 0 1"},
        Row{"FN:Ben Berg|NOTE:x", "FN:Ben Berg|NOTE:y", "ask name 0 1"},
        Row{"FN:Ben Berg|EMAIL:a@b.c", "FN:B. Berg|EMAIL:d@e.f", ""},
        Row{"FN:Ben Berg|TEL:1", "FN:Al Lee|TEL:1", ""},
        Row{"NOTE:x|ORG:Firm", "NOTE:x|ORG:Other", ""}};
    Check(kRows);
}

TEST(MatchesTest, WhatTwoDifferentRecordsHoldIsAskedAbout) {
    EXPECT_EQ(Found(CardsOf("FN:Anna|EMAIL:a@b.c", "FN:Ben|EMAIL:a@b.c", "EMAIL:a@b.c")),
              "ask contained 0 2; ask contained 1 2; keep address 0 1");
    // One of both holds the other one, so that they are not different.
    EXPECT_EQ(Found(CardsOf("EMAIL:a@b.c", "FN:Ben|EMAIL:a@b.c", "FN:Ben|EMAIL:a@b.c|TEL:1")),
              "merge contained 0 1 2");
    EXPECT_EQ(Found(CardsOf("FN:Al|TEL:1|NOTE:x", "FN:Al|TEL:1", "FN:Al|TEL:1", "FN:al|TEL:1")),
              "merge same 1 2 3; merge contained 0 1");
}

TEST(MatchesTest, OnlyThoseWhoAllAgreeAreOneGroup) {
    const std::string three = CardsOf(
        "FN:B. Berg|EMAIL:a@b.c|TEL:1", "FN:Ben Berg|EMAIL:a@b.c", "FN:Bob Berg|EMAIL:a@b.c");
    EXPECT_EQ(Found(three, true), "ask agree 0 1; ask agree 0 2; keep address 1 2");
    EXPECT_EQ(Found(CardsOf("FN:B. Berg|EMAIL:a@b.c|TEL:1",
                            "FN:Ben Berg|EMAIL:a@b.c|EMAIL:d@e.f|TEL:2",
                            "FN:Berg|EMAIL:d@e.f|TEL:3",
                            "FN:Sales|EMAIL:a@b.c|TEL:4"),
                    true),
              "merge agree 0 1 2; keep address 0 3");
}

TEST(MatchesTest, ReasonsNameWhatIsShared) {
    const test::ReadBook read(ReadVCard,
                              CardsOf("FN:B. Berg|EMAIL:bb@example.org|TEL:1",
                                      "FN:Ben Berg|EMAIL:BB@example.org|EMAIL:info@firm.example",
                                      "FN:Sales|EMAIL:info@firm.example",
                                      "FN:Sales|EMAIL:info@firm.example"));
    const Matches found = FindMatches(read.book, false);
    ASSERT_THAT(found.Lines, testing::SizeIs(3));
    EXPECT_EQ(found.Lines[0].Reason, "Sales <info@firm.example>");
    EXPECT_EQ(found.Lines[1].Reason, "share bb@example.org, names \"B. Berg\" / \"Ben Berg\"");
    EXPECT_EQ(found.Lines[2].Reason, "share info@firm.example: \"Ben Berg\" / \"Sales\"");
    EXPECT_THAT(found.Counts, testing::ElementsAre(1, 0, 1, 1, 0));
}

TEST(MatchesTest, ListsAreTheSameWithTheSameMembers) {
    constexpr std::string_view kCrew = "FN:Crew|X-ADDRESSBOOKSERVER-KIND:group|";
    const auto list = [&](std::string_view members) { return std::string(kCrew).append(members); };
    const std::string people = CardsOf("FN:Al|EMAIL:a@b.c|UID:1", "FN:AL|EMAIL:a@b.c|UID:2");
    const std::string one = list("X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1");
    const std::string two = list("X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2");
    const std::string other = list("X-ADDRESSBOOKSERVER-MEMBER:mailto:x@y.z");
    EXPECT_EQ(Found(people + CardsOf(one, two)), "merge same 0 1; merge same 2 3");
    EXPECT_EQ(Found(people + CardsOf(one, other)), "merge same 0 1");
    EXPECT_EQ(Found(CardsOf(other, "FN:Crew|EMAIL:x@y.z")), "");
}

TEST(MatchesTest, WhoHasNoPlaceOfTheirOwnTakesPartIfAllDo) {
    test::ReadBook read(ReadVCard,
                        test::CardsOf("FN:Al|EMAIL:a@b.c", "FN:Al|EMAIL:a@b.c", "FN:Bo", "FN:Bo"));
    read.book.Contacts[1].From.Line = 1;
    read.book.Contacts[3].From = {};
    const Matches placed = FindMatches(read.book, false);
    EXPECT_EQ(test::Shown(placed), "");
    EXPECT_THAT(placed.Notes, testing::SizeIs(1));
    const Matches all = FindMatches(read.book, false, TakesPart::All);
    EXPECT_EQ(test::Shown(all), "merge same 0 1; merge same 2 3");
    EXPECT_THAT(all.Notes, testing::IsEmpty());
}

// None of these may take quadratic time; the work is bounded by what a bucket compares.
TEST(MatchesTest, CrowdsAreToldAndNotCompared) {
    constexpr std::size_t kPeople = 4'000;
    std::string equal;
    std::string one_address;
    std::string one_name;
    std::string one_person;
    std::string no_name;
    for (std::size_t i = 0; i < kPeople; ++i) {
        const std::string number = std::to_string(i);
        equal += test::CardOf("FN:Al|EMAIL:a@b.c");
        one_address += test::CardOf("FN:Person " + number + "|EMAIL:a@b.c");
        one_name += test::CardOf("FN:Ben Berg|EMAIL:a" + number + "@b.c");
        one_person += test::CardOf("FN:Ben Berg|EMAIL:a@b.c|NOTE:" + number);
        no_name += test::CardOf("EMAIL:a@b.c|TEL:1|NOTE:" + number);
    }
    const test::ReadBook read(ReadVCard, equal);
    const Matches found = FindMatches(read.book, false);
    ASSERT_THAT(found.Lines, testing::SizeIs(1));
    EXPECT_EQ(found.Lines.front().Records.size(), kPeople);
    const auto notes = [](const std::string& cards, std::size_t lines) {
        const test::ReadBook crowd(ReadVCard, cards);
        const Matches matches = FindMatches(crowd.book, true);
        EXPECT_EQ(matches.Lines.size(), lines);
        return matches.Notes;
    };
    EXPECT_THAT(notes(one_address, 0),
                testing::ElementsAre("address: 4000 records share a@b.c; only equal names among "
                                     "them were looked for"));
    EXPECT_THAT(notes(one_name, 0),
                testing::ElementsAre("name: 4000 different records are called \"Ben Berg\"; they "
                                     "are not named"));
    EXPECT_THAT(notes(one_person, kPeople - 1), testing::SizeIs(3));
    EXPECT_THAT(notes(no_name, 0), testing::SizeIs(2));
}

}  // namespace
}  // namespace orvik::book
