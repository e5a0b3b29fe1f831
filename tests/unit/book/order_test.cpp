#include "book/order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/typed_views.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using testing::ElementsAre;

std::vector<std::string> Sorted(const std::vector<std::string>& cards,
                                SortBy by,
                                const std::string& locale = "en") {
    std::string text;
    for (const std::string& fields : cards) {
        text += "BEGIN:VCARD\nVERSION:3.0\n" + fields + "\nEND:VCARD\n";
    }
    test::ReadBook read(ReadVCard, text);
    SortBook(read.book, by, locale);
    std::vector<std::string> names;
    for (const Contact& contact : read.book.Contacts) {
        names.push_back(NameOf(read.book, contact).Shown);
    }
    return names;
}

TEST(SortBookTest, NamesStandAsPeopleThereExpect) {
    const std::vector<std::string> cards = {
        "FN:Zoe", "FN:\u00D6rjan", "FN:adam", "FN:Olga", "FN:Bo"};
    EXPECT_THAT(Sorted(cards, SortBy::Name),
                ElementsAre("adam", "Bo", "Olga", "\u00D6rjan", "Zoe"));
    EXPECT_THAT(Sorted(cards, SortBy::Name, "sv_SE.UTF-8"),
                ElementsAre("adam", "Bo", "Olga", "Zoe", "\u00D6rjan"));
    EXPECT_THAT(Sorted(cards, SortBy::None),
                ElementsAre("Zoe", "\u00D6rjan", "adam", "Olga", "Bo"));
}

TEST(SortBookTest, FamilyBeforeGivenName) {
    EXPECT_THAT(Sorted({"FN:Zoe Muller\nN:Muller;Zoe;;;",
                        "FN:Al M\u00FCller\nN:M\u00FCller;Al;;;",
                        "FN:Al Muller\nN:Muller;Al;;;",
                        "FN:Nobody\nN:;;;;",
                        "FN:Firm"},
                       SortBy::Family),
                ElementsAre("Firm", "Al Muller", "Zoe Muller", "Al M\u00FCller", "Nobody"));
}

TEST(SortBookTest, AddressesAndDomains) {
    const std::vector<std::string> cards = {"FN:1\nEMAIL:b@z.example",
                                            "FN:2",
                                            "FN:3\nEMAIL:C@a.example",
                                            "FN:4\nEMAIL:a@z.example",
                                            "FN:5\nEMAIL:a@\u00FCber.example"};
    EXPECT_THAT(Sorted(cards, SortBy::Address), ElementsAre("5", "4", "1", "3", "2"));
    EXPECT_THAT(Sorted(cards, SortBy::Domain), ElementsAre("3", "5", "4", "1", "2"));
}

TEST(SortBookTest, EqualOnesKeepTheirOrder) {
    EXPECT_THAT(Sorted({"FN:x\nEMAIL:a@b", "FN:y\nEMAIL:A@b", "EMAIL:a@B", "NOTE:1", "FN:z"},
                       SortBy::Address),
                ElementsAre("x", "y", "a@B", "", "z"));
}

TEST(IsLocaleTest, LanguagesAreKnown) {
    for (const char* const name : {"", "C", "C.UTF-8", "POSIX", "de", "sv_SE.UTF-8", "pt-BR"}) {
        EXPECT_TRUE(IsLocale(name)) << name;
    }
    for (const char* const name : {"klingon", "xx", "12"}) {
        EXPECT_FALSE(IsLocale(name)) << name;
    }
}

using Numbers = std::vector<std::uint32_t>;

Numbers OrderedBy(SortBy by, bool is_descending = false) {
    const test::ReadBook read(ReadVCard,
                              "BEGIN:VCARD\nVERSION:3.0\nFN:B\nNICKNAME:x,a\nTEL:+2\nEND:VCARD\n"
                              "BEGIN:VCARD\nVERSION:3.0\nFN:a\nNOTE:n\nEND:VCARD\n"
                              "BEGIN:VCARD\nVERSION:3.0\nFN:b\nNICKNAME:c\nTEL:(1)\nEND:VCARD\n"
                              "BEGIN:VCARD\nVERSION:3.0\nFN:a\nNOTE:m\nEND:VCARD\n");
    Sorting how{"en"};
    how.IsDescending = is_descending;
    return OrderOf(read.book, by, how);
}

TEST(OrderOfTest, GivesNumbersInEitherDirection) {
    EXPECT_THAT(OrderedBy(SortBy::None), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(OrderedBy(SortBy::None, true), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(OrderedBy(SortBy::Name), ElementsAre(1, 3, 2, 0));
    EXPECT_THAT(OrderedBy(SortBy::Name, true), ElementsAre(0, 2, 1, 3)) << "equal ones stay";
    EXPECT_THAT(OrderedBy(SortBy::Nickname), ElementsAre(2, 0, 1, 3));
    EXPECT_THAT(OrderedBy(SortBy::Nickname, true), ElementsAre(0, 2, 1, 3)) << "none come last";
    EXPECT_THAT(OrderedBy(SortBy::Phone), ElementsAre(2, 0, 1, 3));
    EXPECT_THAT(OrderedBy(SortBy::Note), ElementsAre(3, 1, 0, 2));
    EXPECT_THAT(OrderedBy(SortBy::Source), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(OrderedBy(SortBy::Source, true), ElementsAre(3, 2, 1, 0));
}

TEST(OrderOfTest, TakesTextsOfElsewhere) {
    const test::ReadBook read(ReadVCard,
                              "BEGIN:VCARD\nFN:1\nEND:VCARD\nBEGIN:VCARD\nFN:2\nEND:VCARD\n");
    std::size_t told = 0;
    Sorting how{"en"};
    how.HowFar = [&told](std::size_t done, std::size_t /*all*/) { told = done; };
    const SortText text = [](std::uint32_t number, std::string& to) {
        to += number == 0 ? "z" : "Y";
    };
    EXPECT_THAT(OrderOf(read.book, text, how), ElementsAre(1, 0));
    EXPECT_EQ(told, 2U);
}

}  // namespace
}  // namespace orvik::book
