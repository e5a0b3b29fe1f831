#include "book/members.h"

#include <cstddef>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "book/old/read_aliases.h"
#include "book/old/read_pegasus_list.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

// "NAME <ADDRESS> found" for each member of the last contact.
std::string Members(ReadBook::Reader reader, const std::string& text) {
    const ReadBook read(reader, text);
    const Identities identities(read.book);
    const Directory directory(read.book, identities);
    std::string shown;
    for (const ListMember& one : directory.MembersOf(read.book.Contacts.back())) {
        shown += one.Name + " <" + one.Address + ">";
        if (one.Record != ListMember::kNobody) {
            EXPECT_EQ(directory.UidOf(one), identities.UidAt(one.Record));
            shown += " " + std::to_string(one.Record);
        } else {
            EXPECT_EQ(directory.UidOf(one), "");
        }
        shown += "\n";
    }
    return shown;
}

TEST(Directory, FindsMembersOfLdif) {
    EXPECT_EQ(Members(ReadLdif,
                      "dn: cn=Ada,mail=a@b\ncn: Ada\nmail: a@b\n\n"
                      "dn: uid=bo,ou=people\ncn: Bo\nmail: bo@x\n\n"
                      "dn: cn=Inner\nobjectclass: groupOfNames\ncn: Inner\n\n"
                      "dn: cn=Team\nobjectclass: groupOfNames\ncn: Team\n"
                      "member: cn=Ada,mail=a@b\nmember: uid=bo,ou=people\nmember: cn=Inner\n"
                      "member: cn=Else,mail=A@B\nmember: cn=Nobody,mail=n@x\n"),
              "Ada <a@b> 0\nBo <bo@x> 1\nInner <> 2\nAda <A@B> 0\nNobody <n@x>\n");
}

TEST(Directory, FindsMembersOfCards) {
    const std::string people =
        "BEGIN:VCARD\nVERSION:3.0\nUID:urn:uuid:A-1\nFN:Ada\nEMAIL:a@b\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nFN:Bo\nEMAIL:bo@x\nEND:VCARD\n";
    EXPECT_EQ(Members(ReadVCard,
                      people + "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nMEMBER:urn:uuid:a-1\n"
                               "MEMBER:mailto:BO@x\nMEMBER:a-2\nEND:VCARD\n"),
              "Ada <a@b> 0\nBo <BO@x> 1\n <>\n");
    EXPECT_EQ(Members(ReadVCard,
                      people + "BEGIN:VCARD\nVERSION:3.0\nX-ADDRESSBOOKSERVER-KIND:group\n"
                               "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:A-1\nEND:VCARD\n"),
              "Ada <a@b> 0\n");
    EXPECT_EQ(
        Members(ReadVCard,
                people + "BEGIN:VCARD\nVERSION:3.0\nX-EVOLUTION-LIST:TRUE\n"
                         "EMAIL;X-EVOLUTION-DEST-NAME=Cy;X-EVOLUTION-DEST-EMAIL=c@x:Cy <c@x>\n"
                         "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=a-1:a@b\nEND:VCARD\n"),
        "Cy <c@x>\nAda <a@b> 0\n");
    EXPECT_EQ(Members(ReadVCard, people), "");
    // What is encoded may end with the sign that names of directories have behind an attribute.
    EXPECT_EQ(Members(ReadVCard,
                      "BEGIN:VCARD\nVERSION:4.0\nUID:AbC1==\nFN:Ada\nEND:VCARD\n"
                      "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nMEMBER:abc1==\nEND:VCARD\n"),
              "Ada <> 0\n");
}

// A list that names itself as often as it has fields is read through once.
TEST(Directory, TakesOneRecordVeryOften) {
    constexpr std::size_t kTimes = 200000;
    for (const auto& [reader, first, again] :
         {std::tuple{&ReadMailrc, "alias all a@b", " all"},
          std::tuple{&ReadPegasusList, "\\TITLE T\n\\NOSIG Y\n", "@file\n"}}) {
        std::string text = first;
        for (std::size_t i = 0; i < kTimes; ++i) {
            text += again;
        }
        const ReadBook read(reader, text + "\n");
        const Identities identities(read.book);
        const Directory directory(read.book, identities);
        const auto members = directory.MembersOf(read.book.Contacts.front());
        ASSERT_GE(members.size(), kTimes);
        EXPECT_EQ(members.back().Record, 0U);
        EXPECT_EQ(directory.UidOf(members.back()), identities.UidAt(0));
    }
}

}  // namespace
}  // namespace orvik::book
