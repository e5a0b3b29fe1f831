#include "book/address_book.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

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

TEST(Book, SharesWhatItHoldsWithSnapshots) {
    ReadBook read(ReadLdif, People(3));
    Book& book = read.book;
    const std::array<std::uint32_t, 2> some = {2, 0};
    auto copy = book.Snapshot(some);
    ASSERT_EQ(copy->Contacts.size(), 2U);
    EXPECT_EQ(copy->Contacts[0].Properties.data(), book.Contacts[2].Properties.data());
    // What the copy learns is nothing to the book, until it takes it over.
    std::vector<Property> fields(copy->Contacts[1].Properties.begin(),
                                 copy->Contacts[1].Properties.end());
    fields[0].Value = copy->Keep("Bo");
    fields[1].Name = copy->Names.Intern("X-Own");
    const Param param{field::kType, copy->Keep("odd")};
    fields[2].Details = copy->KeepDetails({}, {&param, 1});
    const Contact changed = copy->WithFields(copy->Contacts[1], fields);
    EXPECT_FALSE(copy->Contacts[1].Changed);
    EXPECT_EQ(book.Names.Find("X-Own"), FieldNames::kNone);
    book.TakeOver(std::move(copy));
    ASSERT_EQ(book.Contacts.size(), 3U);
    book.Contacts[0] = changed;
    EXPECT_TRUE(Shown(book, book.Contacts[0])
                    .starts_with("person\nFN:Bo\nX-Own:al0@example.org\nTEL;TYPE=odd:0\n"));
    EXPECT_EQ(book.BytesOf(book.Contacts[2]).substr(0, 12), "dn: cn=Al 2,");
    // The book that was copied may go.
    const std::array<std::uint32_t, 1> first = {0};
    copy = book.Snapshot(first);
    book = Book();
    EXPECT_TRUE(Shown(*copy, copy->Contacts[0]).starts_with("person\nFN:Bo\nX-Own:"));
}

TEST(Book, GivesExcerptsThatKnowNothingElse) {
    ReadBook read(ReadVCard,
                  "BEGIN:VCARD\nVERSION:3.0\nFN:Al\nX-OTHER:1\nEND:VCARD\n"
                  "BEGIN:VCARD\nVERSION:3.0\nFN:Bo\nitem1.X-OWN;X-PARAM=y:2\nEND:VCARD\n");
    const std::array<std::uint32_t, 1> second = {1};
    const auto excerpt = read.book.Excerpt(second);
    ASSERT_EQ(excerpt->Contacts.size(), 1U);
    EXPECT_EQ(Shown(*excerpt, excerpt->Contacts[0]), Shown(read.book, read.book.Contacts[1]));
    EXPECT_EQ(excerpt->Names.Find("X-OTHER"), FieldNames::kNone);
    EXPECT_FALSE(excerpt->Contacts[0].Changed);
    EXPECT_EQ(excerpt->BytesOf(excerpt->Contacts[0]), read.book.BytesOf(read.book.Contacts[1]));
    // The book that it is of may go.
    read.book = Book();
    EXPECT_EQ(Shown(*excerpt), "person\nFN:Bo\nitem1.X-OWN;X-PARAM=y:2\n");
}

// A record of so many addresses, and one of two behind it.
std::string ManyAddresses(std::size_t count) {
    std::string ldif = "dn:\ncn: Al\n";
    for (std::size_t i = 1; i < count; ++i) {
        ldif += "mail: al" + std::to_string(i) + "@example.org\n";
    }
    return ldif + "\ndn:\ncn: Bo\nmail: bo@example.org\n";
}

// Above 4096 properties the reader's own are taken, not copied.
TEST(Book, HoldsAsManyPropertiesAsThereAre) {
    for (const std::size_t count : {1U, 4095U, 4096U, 4097U, 10000U}) {
        ReadBook read(ReadLdif, ManyAddresses(count));
        Book& book = read.book;
        ASSERT_EQ(book.Contacts.size(), 2U);
        Contact& many = book.Contacts[0];
        ASSERT_EQ(many.Properties.size(), count);
        EXPECT_EQ(many.Properties.front().Value, "Al");
        for (std::size_t i = 1; i < count; ++i) {
            ASSERT_EQ(many.Properties[i].Value, "al" + std::to_string(i) + "@example.org");
        }
        EXPECT_EQ(Shown(book, book.Contacts[1]), "person\nFN:Bo\nEMAIL:bo@example.org\n");
        book.Add(many, field::kNote, "added");
        book.SetValue(many, 0, "Cy");
        ASSERT_EQ(many.Properties.size(), count + 1);
        EXPECT_EQ(many.Properties.back().Value, "added");
        book.Remove(many, 0);
        ASSERT_EQ(many.Properties.size(), count);
        EXPECT_EQ(many.Properties.front().Value, count == 1 ? "added" : "al1@example.org");
        EXPECT_EQ(many.Properties.back().Value, "added");
        EXPECT_EQ(book.Contacts[1].Properties.size(), 2U);
    }
}

// The same of the parameters of one property.
TEST(Book, HoldsAsManyParametersAsThereAre) {
    for (const std::size_t count : {1U, 4095U, 4096U, 4097U, 10000U}) {
        std::string card = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Al\r\nitem1.TEL";
        for (std::size_t i = 0; i < count; ++i) {
            card += ";X-P=" + std::to_string(i);
        }
        card += ":1\r\nTEL;X-P=last:2\r\nTEL:3\r\nEND:VCARD\r\n";
        const ReadBook read(ReadVCard, card);
        const Contact& al = read.book.Contacts.front();
        ASSERT_EQ(al.Properties.size(), 4U);
        const Details& many = read.book.DetailsOf(al.Properties[1]);
        EXPECT_EQ(many.Group, "item1");
        ASSERT_EQ(many.Params.size(), count);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(many.Params[i].Value, std::to_string(i));
        }
        ASSERT_EQ(read.book.DetailsOf(al.Properties[2]).Params.size(), 1U);
        EXPECT_EQ(read.book.DetailsOf(al.Properties[2]).Params[0].Value, "last");
        EXPECT_TRUE(read.book.DetailsOf(al.Properties[3]).Params.empty());
    }
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

TEST(Arena, JoinsRowsOfValuesWhereTheyAreAligned) {
    Arena arena;
    EXPECT_TRUE(arena.KeepJoined<Property>({}, {}).empty());
    EXPECT_EQ(arena.Held(), 0U);
    // So many of them begin in each block, and lie across the end of none.
    for (std::uint32_t i = 0; i < 300000; ++i) {
        arena.Keep("odd");
        const Property first{"first", i};
        const std::array<Property, 2> behind = {Property{"second", i + 1},
                                                Property{"third", i + 2}};
        const std::span<Property> row = arena.KeepJoined<Property>({&first, 1}, behind);
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(row.data()) % alignof(Property), 0U);
        ASSERT_EQ(row.size(), 3U);
        ASSERT_EQ(row[0].Name, i);
        ASSERT_EQ(row[1].Value, "second");
        ASSERT_EQ(row[2].Name, i + 2);
    }
    EXPECT_LE(arena.Held(), 300000U * (8 + 3 * sizeof(Property)) + 2 * 4U * 1024 * 1024);
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
