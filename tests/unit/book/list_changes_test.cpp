#include "book/list_changes.h"

#include <numeric>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/edits.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// 0 Al, 1 Bo, 2 a list of both and of nobody, 3 a list in words, 4 a list by UID.
struct Lists {
    Lists() {
        std::iota(numbers.begin(), numbers.end(), 0U);
        memberships = Memberships(read.book, numbers);
    }
    [[nodiscard]] Contact With(std::uint32_t record, Editable what, const std::string& value) {
        Contact& contact = read.book.Contacts[record];
        std::vector<Property> fields = EditedFields(read.book, contact, what, value);
        return read.book.WithFields(contact, fields);
    }
    [[nodiscard]] std::string Shown(const std::vector<ListChange>& changes) const {
        std::string shown;
        for (const ListChange& one : changes) {
            shown += std::to_string(one.List) + ":";
            for (const Property& field : one.After.Properties) {
                shown += field.Name == field::kMember ? " " + std::string(field.Value) : "";
            }
            shown += "\n";
        }
        return shown;
    }

    test::ReadBook read{
        ReadVCard,
        "BEGIN:VCARD\nVERSION:4.0\nFN:Al\nEMAIL:Al@a.example\nUID:urn:uuid:1\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:4.0\nFN:Bo\nEMAIL:b@b.example\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Both\nMEMBER:mailto:al@a.example\n"
        "MEMBER:mailto:b@b.example\nMEMBER:mailto:no@b.example\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Words\nMEMBER;VALUE=text:Al\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Uids\nMEMBER:urn:uuid:1\nEND:VCARD\n"};
    std::vector<std::uint32_t> numbers = std::vector<std::uint32_t>(5);
    Memberships memberships;
};

TEST(Memberships, KnowBothSides) {
    const Lists lists;
    EXPECT_THAT(lists.memberships.ListsOf(0), ElementsAre(2U, 3U, 4U));
    EXPECT_THAT(lists.memberships.ListsOf(1), ElementsAre(2U));
    EXPECT_THAT(lists.memberships.ListsOf(2), IsEmpty());
    EXPECT_THAT(lists.memberships.ListsOf(99), IsEmpty());
    const auto members = lists.memberships.MembersOf(2);
    ASSERT_EQ(members.size(), 3U);
    EXPECT_EQ(members[0].Record, 0U);
    EXPECT_EQ(members[1].Record, 1U);
    EXPECT_EQ(members[2].Record, Memberships::kNobody);
    EXPECT_EQ(members[2].Words, "no@b.example");
    EXPECT_THAT(lists.memberships.MembersOf(0), IsEmpty());
}

TEST(Memberships, HaveTheNumbersOfElsewhere) {
    const test::ReadBook read(
        ReadVCard,
        "BEGIN:VCARD\nVERSION:4.0\nFN:Al\nEMAIL:a@a.example\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:L\nMEMBER:mailto:a@a.example\nEND:VCARD\n");
    const std::vector<std::uint32_t> numbers = {7, 3};
    const Memberships memberships(read.book, numbers);
    EXPECT_THAT(memberships.ListsOf(7), ElementsAre(3U));
    ASSERT_EQ(memberships.MembersOf(3).size(), 1U);
    EXPECT_EQ(memberships.MembersOf(3)[0].Record, 7U);
    EXPECT_THAT(memberships.ListsOf(0), IsEmpty());
}

TEST(ListsAfterChange, NameTheMemberAsItIsNow) {
    Lists lists;
    const auto changed = [&](std::uint32_t record, Editable what, const std::string& value) {
        return lists.Shown(ListsAfterChange(
            lists.read.book, lists.memberships, record, lists.With(record, what, value)));
    };
    EXPECT_EQ(changed(0, Editable::Address, "n@a.example"),
              "2: mailto:n@a.example mailto:b@b.example mailto:no@b.example\n");
    EXPECT_EQ(changed(0, Editable::Name, "A,l"), "3: A\\,l\n");
    EXPECT_EQ(changed(1, Editable::Phone, "1"), "");
    EXPECT_EQ(changed(1, Editable::Address, ""), "") << "there is nothing to name it by";
}

TEST(ListsAfterRemoval, AreWithoutTheMember) {
    Lists lists;
    const std::vector<std::uint32_t> al = {0};
    EXPECT_EQ(lists.Shown(ListsAfterRemoval(lists.read.book, lists.memberships, al)),
              "2: mailto:b@b.example mailto:no@b.example\n3:\n4:\n");
    const std::vector<std::uint32_t> more = {0, 1, 2, 4};
    EXPECT_EQ(lists.Shown(ListsAfterRemoval(lists.read.book, lists.memberships, more)), "3:\n");
}

TEST(ListsAfterRemoval, LeaveAListAloneThatIsAnotherOne) {
    Lists lists;
    Book& book = lists.read.book;
    Contact& both = book.Contacts[2];
    while (both.Properties.size() > 1) {
        book.Remove(both, both.Properties.size() - 1);
    }
    const std::vector<std::uint32_t> bo = {1};
    EXPECT_EQ(lists.Shown(ListsAfterRemoval(book, lists.memberships, bo)), "");
    EXPECT_EQ(lists.Shown(ListsAfterChange(
                  book, lists.memberships, 1, lists.With(1, Editable::Address, "n@b.example"))),
              "");
}

}  // namespace
}  // namespace orvik::book
