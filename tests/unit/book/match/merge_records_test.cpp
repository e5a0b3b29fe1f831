#include "book/match/merge_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/match/field_rules.h"
#include "book/members.h"
#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "unit/book/match/cards.h"

namespace orvik::book {
namespace {

using test::CardsOf;

// The first record after all others became part of it.
std::string MergedText(const std::string& cards) {
    test::ReadBook read(ReadVCard, cards);
    MergeGroups groups(1);
    for (std::uint32_t i = 0; i < read.book.Contacts.size(); ++i) {
        groups.front().push_back(i);
    }
    const Merged merged = MergeRecords(read.book, groups);
    EXPECT_EQ(merged.Lost, 0U);
    EXPECT_EQ(merged.Gone.size() + 1, groups.front().size());
    EXPECT_THAT(read.book.Contacts, testing::SizeIs(1));
    return test::Shown(read.book, read.book.Contacts.front());
}

TEST(MergeTest, NewValuesStandBehindTheOldOnes) {
    EXPECT_EQ(MergedText(CardsOf("FN:Al|EMAIL:a@b.c", "FN:Al|EMAIL:d@e.f|TEL;TYPE=home:1|NOTE:x")),
              "person\nFN:Al\nEMAIL:a@b.c\nEMAIL:d@e.f\nTEL;TYPE=home:1\nNOTE:x\n");
}

TEST(MergeTest, EqualRecordsStayAsTheyAre) {
    test::ReadBook read(ReadVCard, CardsOf("FN:Al|EMAIL:a@b.c", "FN:Al|EMAIL:a@b.c|NOTE:"));
    const Merged merged = MergeRecords(read.book, {{0, 1}});
    EXPECT_FALSE(read.book.Contacts.front().Changed);
    EXPECT_THAT(merged.Notes, testing::IsEmpty());
}

TEST(MergeTest, OtherSpellingsAreCarried) {
    EXPECT_EQ(MergedText(CardsOf("FN:Jorg|TEL:15550100", "FN:J\u00F6rg|TEL:+1 555-0100")),
              "person\nFN:J\u00F6rg\nTEL:15550100\nX-ORVIK-MERGED-FN:Jorg\n"
              "X-ORVIK-MERGED-TEL:+1 555-0100\n");
    EXPECT_EQ(MergedText(CardsOf("FN:Al|EMAIL:a@b\u00FCcher.example",
                                 "FN:Al|EMAIL:A@xn--bcher-kva.example")),
              "person\nFN:Al\nEMAIL:a@b\u00FCcher.example\n"
              "X-ORVIK-MERGED-EMAIL:A@xn--bcher-kva.example\n");
    EXPECT_EQ(MergedText(CardsOf("FN:Al|NICKNAME:x,y", "FN:Al|NICKNAME:Y,z", "FN:Al|NICKNAME:Y")),
              "person\nFN:Al\nNICKNAME:x,y\nNICKNAME:z\nX-ORVIK-MERGED-NICKNAME:Y\n");
}

TEST(MergeTest, OfSingleValuesTheOneThatSaysMoreWins) {
    EXPECT_EQ(MergedText(CardsOf("FN:B. Berg|N:Berg;B.;;;|BDAY:1970",
                                 "FN:Ben Berg|N:Berg;Ben;;;|BDAY:1970-05-06")),
              "person\nFN:Ben Berg\nN:Berg;Ben;;;\nBDAY:1970-05-06\nX-ORVIK-MERGED-FN:B. Berg\n"
              "X-ORVIK-MERGED-N:Berg;B.;;;\nX-ORVIK-MERGED-BDAY:1970\n");
    EXPECT_EQ(MergedText(CardsOf("FN:Al|BDAY:1970-01-01", "FN:Al|BDAY:1980-01-01")),
              "person\nFN:Al\nBDAY:1970-01-01\nX-ORVIK-MERGED-BDAY:1980-01-01\n");
}

TEST(MergeTest, SignsAloneAreKept) {
    EXPECT_EQ(MergedText(CardsOf("FN:Al|TEL:1", "FN:Al|TEL:#|TEL:***|TEL:#|TEL:-|ADR:;;;;;;")),
              "person\nFN:Al\nTEL:1\nTEL:#\nTEL:***\n");
    // What says nothing is no loss where there can be one only.
    EXPECT_EQ(MergedText(CardsOf("FN:Al|X-CUSTOM1:x|BDAY:1970", "FN:Al|X-CUSTOM1:-|BDAY:--")),
              "person\nFN:Al\nX-CUSTOM1:x\nBDAY:1970\n");
}

TEST(MergeTest, TheFirstUidAndSavingStay) {
    EXPECT_EQ(MergedText(CardsOf("UID:1|FN:Al|REV:1", "UID:2|FN:Al|REV:2|PRODID:x", "UID:2|FN:Al")),
              "person\nUID:1\nFN:Al\nREV:1\nX-ORVIK-MERGED-UID:2\n");
    EXPECT_EQ(MergedText(CardsOf("FN:Al", "UID:2|FN:Al")), "person\nFN:Al\nUID:2\n");
}

TEST(MergeTest, TypesAreJoinedAndGroupsStayApart) {
    EXPECT_EQ(MergedText(CardsOf("TEL;TYPE=home,pref:1", "TEL;TYPE=HOME,work:1")),
              "person\nTEL;TYPE=home;TYPE=pref;TYPE=work:1\n");
    EXPECT_EQ(MergedText(CardsOf("item1.URL:http://a|item1.X-ABLabel:Blog",
                                 "item1.URL:http://b|item1.X-ABLabel:Blog")),
              "person\nitem1.URL:http://a\nitem1.X-ABLabel:Blog\nitem2.URL:http://b\n"
              "item2.X-ABLabel:Blog\n");
    EXPECT_EQ(MergedText(CardsOf("item1.URL:http://a|item1.X-ABLabel:Blog",
                                 "item2.URL:http://a|item2.X-ABLabel:Home")),
              "person\nitem1.URL:http://a\nitem1.X-ABLabel:Blog\nX-ORVIK-MERGED-X-ABLabel:Home\n");
}

TEST(MergeTest, WhatWasCarriedBeforeStaysCarried) {
    EXPECT_EQ(MergedText(CardsOf("X-ORVIK-MERGED-FN:A. Lee|FN:Al Lee|TEL:1",
                                 "FN:A. Lee|X-ORVIK-MERGED-TEL:+1",
                                 "FN:Al Lee|X-ORVIK-MERGED-TEL:+1")),
              "person\nX-ORVIK-MERGED-FN:A. Lee\nFN:Al Lee\nTEL:1\nX-ORVIK-MERGED-TEL:+1\n");
}

TEST(MergeTest, NotesSayWhoWon) {
    test::ReadBook read(ReadVCard, CardsOf("FN:B. Berg|TEL:1", "FN:Ben Berg|TEL:+1"));
    const Merged merged = MergeRecords(read.book, {{0, 1}});
    ASSERT_THAT(merged.Notes, testing::SizeIs(2));
    EXPECT_EQ(merged.Notes[0].Field, "FN");
    EXPECT_EQ(merged.Notes[0].Value, "B. Berg");
    EXPECT_EQ(merged.Notes[0].Winner, "Ben Berg");
    EXPECT_EQ(merged.Notes[0].From.Line, 1U);
    EXPECT_EQ(merged.Notes[0].FromWinner.Line, 11U);
    EXPECT_FALSE(merged.Notes[0].IsSpelling);
    EXPECT_TRUE(merged.Notes[1].IsSpelling);
}

TEST(MergeTest, BytesThatAreNoLettersAreTold) {
    test::ReadBook read(ReadVCard,
                        CardsOf("FN:Al|EMAIL:a@b.c", "FN:Al|NOTE;CHARSET=UTF-8:x\xFFy\xFFz"));
    static_cast<void>(MergeRecords(read.book, {{0, 1}}));
    EXPECT_GT(read.book.Told.Count(What::Lost), 0U);
}

class MergedListsTest : public testing::Test {
 protected:
    // Merges the second record into the first one, and shows the list behind them.
    static std::string ListOf(const std::string& cards, const MergeGroups& groups = {{0, 1}}) {
        test::ReadBook read(ReadVCard, cards);
        static_cast<void>(MergeRecords(read.book, groups));
        return test::Shown(read.book, read.book.Contacts.back());
    }
};

TEST_F(MergedListsTest, MembersAreRenamedAndStandOnce) {
    constexpr std::string_view kList = "list\nFN:L\nX-ADDRESSBOOKSERVER-KIND:group\n";
    const auto list = [](std::string_view members) {
        return "FN:L|X-ADDRESSBOOKSERVER-KIND:group|" + std::string(members);
    };
    EXPECT_EQ(ListOf(CardsOf("UID:1|FN:Al",
                             "UID:2|FN:Al",
                             list("X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1|"
                                  "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2|"
                                  "X-ADDRESSBOOKSERVER-MEMBER:mailto:x@y.z"))),
              std::string(kList) +
                  "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n"
                  "X-ADDRESSBOOKSERVER-MEMBER:mailto:x@y.z\n");
    EXPECT_EQ(ListOf(CardsOf("UID:1|FN:Al",
                             "FN:Al|EMAIL:a@b.c",
                             list("X-ADDRESSBOOKSERVER-MEMBER;VALUE=uri:mailto:A@b.c"))),
              std::string(kList) + "X-ADDRESSBOOKSERVER-MEMBER:1\n");
}

TEST_F(MergedListsTest, AMemberWithoutAUidGetsOne) {
    test::ReadBook read(ReadVCard,
                        CardsOf("FN:Al|EMAIL:x@y.z",
                                "FN:Al|EMAIL:a@b.c",
                                "FN:L|X-ADDRESSBOOKSERVER-KIND:group|"
                                "X-ADDRESSBOOKSERVER-MEMBER:mailto:a@b.c"));
    static_cast<void>(MergeRecords(read.book, {{0, 1}}));
    const Identities identities(read.book);
    const Directory directory(read.book, identities);
    const auto members = directory.MembersOf(read.book.Contacts.back());
    ASSERT_THAT(members, testing::SizeIs(1));
    EXPECT_EQ(members.front().Record, 0U);
}

TEST_F(MergedListsTest, ListsOfEvolutionKeepTheirAddresses) {
    EXPECT_EQ(ListOf(CardsOf("UID:1|FN:Al|EMAIL:x@y.z",
                             "UID:2|FN:Al|EMAIL:a@b.c",
                             "FN:L|X-EVOLUTION-LIST:TRUE|"
                             "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=2;X-P=q:a@b.c")),
              "list\nFN:L\nX-EVOLUTION-LIST:TRUE\n"
              "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=1;X-P=q:a@b.c\n");
}

TEST_F(MergedListsTest, ListsThatMergeHaveTheMembersOfBoth) {
    const std::string people = CardsOf("UID:1|FN:Al|EMAIL:a@b.c", "UID:2|FN:Bo|EMAIL:b@b.c");
    constexpr std::string_view kGroup = "FN:L|X-ADDRESSBOOKSERVER-KIND:group|";
    const std::string one = std::string(kGroup) + "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1";
    const std::string two = one + "|X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2|NOTE:x";
    EXPECT_EQ(ListOf(people + CardsOf(one, two), {{2, 3}}),
              "list\nFN:L\nX-ADDRESSBOOKSERVER-KIND:group\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n"
              "NOTE:x\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:2\n");
    EXPECT_EQ(ListOf(people + CardsOf(one, "FN:L|X-EVOLUTION-LIST:TRUE|EMAIL:b@b.c"), {{2, 3}}),
              "list\nFN:L\nX-ADDRESSBOOKSERVER-KIND:group\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\n"
              "MEMBER:mailto:b@b.c\n");
    EXPECT_EQ(ListOf(people + CardsOf("FN:L|X-EVOLUTION-LIST:TRUE|EMAIL:a@b.c", two), {{2, 3}}),
              "list\nFN:L\nX-EVOLUTION-LIST:TRUE\nEMAIL:a@b.c\nNOTE:x\nEMAIL:b@b.c\n");
}

// Each format has room for what was carried.
TEST(MergeTest, WhatIsCarriedComesBackFromEachFormat) {
    const std::string cards = CardsOf("UID:1|FN:Ben Berg|N:Berg;Ben;;;|TEL:1|NICKNAME:a\\,b",
                                      "UID:2|FN:B. Berg|N:Berg;B.;;;|TEL:+1|NICKNAME:A\\,B");
    test::ReadBook read(ReadVCard, cards);
    static_cast<void>(MergeRecords(read.book, {{0, 1}}));
    const test::ReadBook three(ReadVCard, WriteVCard(read.book, Dialect::VCard30));
    const test::ReadBook four(ReadVCard, WriteVCard(read.book, Dialect::VCard40));
    const test::ReadBook ldif(ReadLdif, WriteLdif(read.book, LdifAttributes::Mozilla));
    const auto carried = [](const Book& book) {
        std::vector<std::string> found;
        for (const Property& one : book.Contacts.front().Properties) {
            const std::string name(book.Names.Text(one.Name));
            if (name.starts_with(kCarriedFromMerge)) {
                found.push_back(name + ":" + std::string(one.Value));
            }
        }
        return found;
    };
    const auto wanted = testing::UnorderedElementsAre("X-ORVIK-MERGED-UID:2",
                                                      "X-ORVIK-MERGED-FN:B. Berg",
                                                      "X-ORVIK-MERGED-N:Berg;B.;;;",
                                                      "X-ORVIK-MERGED-TEL:+1",
                                                      "X-ORVIK-MERGED-NICKNAME:A,B");
    EXPECT_THAT(carried(read.book), wanted);
    EXPECT_THAT(carried(three.book), wanted);
    EXPECT_THAT(carried(four.book), wanted);
    EXPECT_THAT(carried(ldif.book), wanted);
}

TEST(MergeTest, VeryManyRecordsBecomeOne) {
    std::string cards;
    MergeGroups groups(1);
    for (std::uint32_t i = 0; i < 4'000; ++i) {
        const std::string number = std::to_string(i);
        cards += test::CardOf("FN:Person " + number + "|TEL;TYPE=t" + number + ":1|NOTE:" + number);
        groups.front().push_back(i);
    }
    test::ReadBook read(ReadVCard, cards);
    const Merged merged = MergeRecords(read.book, groups);
    EXPECT_EQ(merged.Lost, 0U);
    EXPECT_EQ(read.book.Contacts.front().Properties.size(), 8'001U);
}

// Whoever shows the book has numbers of its own.
TEST(MergeTest, WhoWentAndWhoChangedIsTold) {
    test::ReadBook read(ReadVCard,
                        CardsOf("FN:Al|EMAIL:a@b.c",
                                "FN:Bo|EMAIL:b@b.c",
                                "FN:Bo|EMAIL:b@b.c|NOTE:x",
                                "FN:AL|EMAIL:a@b.c|UID:u",
                                "FN:Crew|X-ADDRESSBOOKSERVER-KIND:group|"
                                "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:u"));
    const Merged merged = MergeRecords(read.book, {{0, 3}, {2, 1}});
    ASSERT_THAT(merged.Gone, testing::SizeIs(2));
    EXPECT_EQ(merged.Gone[0].Record, 1U);
    EXPECT_EQ(merged.Gone[1].Record, 3U);
    // The one that held all of another one is the same as before.
    ASSERT_THAT(merged.Changed, testing::SizeIs(2));
    EXPECT_EQ(merged.Changed[0].Before, 0U);
    EXPECT_EQ(merged.Changed[0].After, 0U);
    EXPECT_EQ(merged.Changed[1].Before, 4U);
    EXPECT_EQ(merged.Changed[1].After, 2U);
}

TEST(MergeTest, WhatNamesTheRecordIsKnown) {
    test::ReadBook read(ReadVCard,
                        CardsOf("FN:Al|EMAIL:a@b.c|UID:v", "FN:Al Berg|EMAIL:a@b.c|UID:u"));
    const Merged merged = MergeRecords(read.book, {{0, 1}});
    ASSERT_THAT(merged.Notes, testing::SizeIs(2));
    EXPECT_FALSE(NamesTheRecord(merged.Notes[0]));
    EXPECT_TRUE(NamesTheRecord(merged.Notes[1]));
}

}  // namespace
}  // namespace orvik::book
