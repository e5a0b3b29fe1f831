#include "book/list_links.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

constexpr const char* kBook =
    "dn: cn=Al,mail=al@example.org\ncn: Al\nmail: al@example.org\n\n"
    "dn: cn=Team\nobjectclass: groupofnames\ncn: Team\n"
    "member: cn=Al,mail=al@example.org\nmember: cn=Nobody,mail=no@example.org\n\n"
    "dn: cn=Bo\ncn: Bo\n\n"
    "dn: cn=All\nobjectclass: groupofnames\ncn: All\nmember: cn=Team\n";

std::string LinksIn(const Book& book) {
    std::string text;
    for (const ListLink& one : LinksOf(book, {})) {
        const bool nobody = one.Record == ListLink::kNobody;
        text += std::to_string(one.List) + "-" + (nobody ? "?" : std::to_string(one.Record)) + " ";
    }
    return text;
}

TEST(ListLinksTest, MembersByTheirNumbers) {
    const ReadBook read(ReadLdif, kBook);
    EXPECT_TRUE(HasLists(read.book));
    EXPECT_EQ(LinksIn(read.book), "1-0 1-? 3-1 ");
    // The place tells which value of the list it is.
    const std::vector<ListLink> links = LinksOf(read.book, {});
    for (const ListLink& link : links) {
        bool found = false;
        for (const Property& one : read.book.Contacts[link.List].Properties) {
            found = found || one.Value.data() == link.Where;
        }
        EXPECT_TRUE(found);
    }
}

TEST(ListLinksTest, WhoWasLeftOutIsNotMissed) {
    ReadBook read(ReadLdif, kBook);
    for (const Property& one : read.book.Contacts[1].Properties) {
        if (one.Value.find("Nobody") != std::string_view::npos) {
            read.book.LeaveOut(one);
        }
    }
    EXPECT_EQ(LinksIn(read.book), "1-0 3-1 ");
}

TEST(ListLinksTest, NobodyIsLookedForWithoutLists) {
    const ReadBook read(ReadLdif, "dn: cn=Al\ncn: Al\n");
    EXPECT_FALSE(HasLists(read.book));
    EXPECT_EQ(LinksOf(read.book, [](std::size_t, std::size_t) { FAIL(); }).size(), 0U);
}

TEST(ListLinksTest, CanBeEnded) {
    struct Enough {};
    const ReadBook read(ReadLdif, kBook);
    EXPECT_THROW(static_cast<void>(LinksOf(read.book,
                                           [](std::size_t done, std::size_t) {
                                               if (done == 2) {
                                                   throw Enough();
                                               }
                                           })),
                 Enough);
}

}  // namespace
}  // namespace orvik::book
