#include "book/address_book.h"

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;

std::string People(std::size_t count) {
    std::string ldif;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        ldif += "dn: cn=Al " + number + ",mail=al" + number + "@example.org\ncn: Al " + number +
                "\nmail: al" + number + "@example.org\nhomePhone: " + number +
                "\nxmozillanickname: al\nmobile: 1\ndescription: a note of some length\n\n";
    }
    return ldif;
}

TEST(Book, KeepsLittleBesidesTheText) {
    const ReadBook read(ReadLdif, People(10000));
    ASSERT_EQ(read.book.Contacts.size(), 10000U);
    std::size_t properties = 0;
    std::size_t held = 0;
    for (const Contact& contact : read.book.Contacts) {
        properties += contact.Properties.size();
        held += contact.Properties.size_bytes();
    }
    EXPECT_EQ(properties, 60000U);
    EXPECT_LE(held, properties * 48);
    // Nothing that stands in the source is copied.
    EXPECT_LE(read.book.TextHeld(), 64U * 1024);
}

TEST(Book, MarksWhatTheUserChanged) {
    ReadBook read(ReadLdif, People(2));
    Book& book = read.book;
    EXPECT_FALSE(book.Contacts[0].Changed);
    book.SetValue(book.Contacts[0], 0, "Bo");
    book.Remove(book.Contacts[0], 1);
    book.Add(book.Contacts[0], book.Names.Intern("X-Own"), "1");
    EXPECT_TRUE(book.Contacts[0].Changed);
    EXPECT_FALSE(book.Contacts[1].Changed);
    EXPECT_EQ(Shown(book, book.Contacts[0]),
              "person\nFN:Bo\nTEL;TYPE=home:0\nNICKNAME:al\nTEL;TYPE=cell:1\n"
              "NOTE:a note of some length\nX-Own:1\n");
    const Contact made;
    EXPECT_EQ(book.BytesOf(made), "");
}

TEST(Report, CountsAndNames) {
    Report report;
    report.CountMore(What::Kept, 3);
    report.Add({"mail", "a", 0, 1, FieldNames::kNone, What::Lost, Reason::NotInTarget});
    EXPECT_EQ(report.Count(What::Kept), 3U);
    EXPECT_EQ(report.Count(What::Lost), 1U);
    EXPECT_EQ(NameOf(What::Carried), "carried");
    EXPECT_EQ(WordsFor(report.Remarks().front().Why), "has no place in the target");
}

TEST(Arena, KeepsLongAndShortTexts) {
    Arena arena;
    const std::string longer(1U << 20U, 'x');
    const std::string_view first = arena.Keep("first");
    const std::string_view second = arena.Keep(longer);
    for (int i = 0; i < 100000; ++i) {
        arena.Keep("0123456789");
    }
    EXPECT_EQ(first, "first");
    EXPECT_EQ(second, longer);
    EXPECT_EQ(arena.Keep(""), "");
    EXPECT_LE(arena.Held(), longer.size() + 1000000U + 2 * 64U * 1024);
}

}  // namespace
}  // namespace orvik::book
