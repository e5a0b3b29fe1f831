#include "book/differences.h"

#include <array>
#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::vector<Compared> Between(const Book& left, const Book& right) {
    return Compare(left, Identities(left), right, Identities(right));
}

std::vector<Compared> OfCards(std::string left, std::string right) {
    const test::ReadBook one(ReadVCard, std::move(left));
    const test::ReadBook other(ReadVCard, std::move(right));
    return Between(one.book, other.book);
}

std::string Card(std::string_view lines) {
    return "BEGIN:VCARD\nVERSION:3.0\n" + std::string(lines) + "\nEND:VCARD\n";
}

// "Same", with the numbers of both contacts.
std::string Shown(const std::vector<Compared>& found) {
    constexpr std::array kNames = {"same", "left", "right", "changed"};
    std::string text;
    for (const Compared& one : found) {
        text += text.empty() ? "" : "; ";
        text += kNames[static_cast<std::size_t>(one.What)];
        text += one.Left == Compared::kNobody ? "" : " " + std::to_string(one.Left);
        text += one.Right == Compared::kNobody ? "" : "=" + std::to_string(one.Right);
        for (const std::string& field : one.Fields) {
            text += " " + field;
        }
    }
    return text;
}

TEST(CompareTest, EqualUidsAreOnePerson) {
    EXPECT_EQ(Shown(OfCards(Card("UID:1\nFN:Al") + Card("UID:2\nFN:Bo"),
                            Card("UID:urn:uuid:2\nFN:Bo") + Card("UID:1\nFN:Al\nTEL:5"))),
              "changed 0=1 TEL; same 1=0");
}

TEST(CompareTest, SoAreRecordsThatHoldTheSame) {
    EXPECT_EQ(Shown(OfCards(Card("UID:1\nFN:Al\nEMAIL:a@b"), Card("UID:2\nFN:Al\nEMAIL:a@b"))),
              "same 0=0");
}

TEST(CompareTest, SoAreNameAndFirstAddress) {
    EXPECT_EQ(
        Shown(OfCards(Card("UID:1\nFN:Al\nEMAIL:A@b\nNOTE:x"), Card("UID:2\nFN:al\nEMAIL:a@b"))),
        "changed 0=0 EMAIL FN NOTE");
    EXPECT_EQ(Shown(OfCards(Card("UID:1\nFN:Al\nNOTE:x"), Card("UID:2\nFN:Al"))),
              "changed 0=0 NOTE");
    EXPECT_EQ(Shown(OfCards(Card("UID:1\nNOTE:x"), Card("UID:2\nNOTE:y"))), "left 0; right=0");
    EXPECT_EQ(Shown(OfCards(Card("UID:1\nFN:Al\nEMAIL:a@b"), Card("UID:2\nFN:Al\nEMAIL:c@d"))),
              "left 0; right=0");
}

TEST(CompareTest, EachPersonIsComparedOnce) {
    EXPECT_EQ(Shown(OfCards(Card("FN:Al") + Card("FN:Al"), Card("FN:Al"))), "same 0=0; left 1");
    EXPECT_EQ(Shown(OfCards("", Card("FN:Al"))), "right=0");
}

TEST(CompareTest, OrderParametersAndSavingTimesDoNotCountButTypesDo) {
    EXPECT_EQ(Shown(OfCards(Card("UID:1\nFN:Al\nTEL;TYPE=home,pref:1\nNICKNAME:a,b\nREV:1\nN:;;;;"),
                            Card("UID:1\nNICKNAME:b\nNICKNAME:a\nTEL;TYPE=HOME:1\nFN:Al\nREV:2"))),
              "same 0=0");
    EXPECT_EQ(Shown(OfCards(Card("UID:1\nTEL;TYPE=home:1"), Card("UID:1\nTEL;TYPE=work:1"))),
              "changed 0=0 TEL");
}

TEST(CompareTest, WhatWasConvertedIsTheSame) {
    const std::string cards =
        Card(
            "FN:Al\nN:A;B\nBDAY:1980-04-12\nLABEL;TYPE=home:x\nX-ANNIVERSARY:2001-02-03\n"
            "PHOTO;ENCODING=b;TYPE=JPEG:/9j/4AAQ\nCATEGORIES:a,b\nADR;TYPE=home:;;1 Road;;;;") +
        Card("FN:Bo\nEMAIL:b@c\nEMAIL;TYPE=internet,work:d@e\nTEL;TYPE=x-odd:5") +
        Card(
            "FN:Crew\nX-ADDRESSBOOKSERVER-KIND:group\nX-ADDRESSBOOKSERVER-MEMBER:mailto:b@c\n"
            "X-ADDRESSBOOKSERVER-MEMBER:mailto:no@body");
    test::ReadBook source(ReadVCard, cards);
    const test::ReadBook newer(ReadVCard, WriteVCard(source.book, Dialect::VCard40));
    EXPECT_EQ(Shown(Between(source.book, newer.book)), "same 0=0; same 1=1; same 2=2");
    for (const auto set : {LdifAttributes::Mozilla,
                           LdifAttributes::Netscape,
                           LdifAttributes::KContacts,
                           LdifAttributes::Evolution}) {
        const test::ReadBook ldif(ReadLdif, WriteLdif(source.book, set));
        EXPECT_EQ(Shown(Between(source.book, ldif.book)), "same 0=0; same 1=1; same 2=2")
            << static_cast<int>(set);
    }
}

// Whether each card is known to an older book.
std::vector<bool> Known(std::string older, std::string newer) {
    const test::ReadBook one(ReadVCard, std::move(older));
    const test::ReadBook other(ReadVCard, std::move(newer));
    return KnownIn(one.book, Identities(one.book), other.book, Identities(other.book));
}

TEST(KnownInTest, EachWayToBeOnePersonCountsHoweverOftenItIsThere) {
    EXPECT_THAT(Known(Card("UID:1\nFN:Al") + Card("FN:Bo\nEMAIL:b@x\nTEL:5") + Card("FN:Cy\nTEL:6"),
                      Card("UID:urn:uuid:1\nFN:Other") + Card("UID:2\nFN:Bo\nEMAIL:B@x") +
                          Card("FN:Bo\nEMAIL:b@x") + Card("UID:3\nFN:Cy\nTEL:6") +
                          Card("FN:Bo\nEMAIL:b@y") + Card("UID:4\nTEL:6")),
                ElementsAre(true, true, true, true, false, false));
}

TEST(KnownInTest, AListIsNoPersonOfItsName) {
    const std::string list = Card("FN:Crew\nX-ADDRESSBOOKSERVER-KIND:group");
    EXPECT_THAT(Known(Card("FN:Crew"), list + Card("FN:Crew")), ElementsAre(false, true));
    EXPECT_THAT(Known(list, list), ElementsAre(true));
    EXPECT_THAT(Known({}, list), ElementsAre(false));
}

}  // namespace
}  // namespace orvik::book
