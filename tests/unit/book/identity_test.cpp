#include "book/identity.h"

#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

std::string UidOf(const std::string& ldif, std::size_t contact = 0) {
    const ReadBook read(ReadLdif, ldif);
    return Identities(read.book).UidAt(contact);
}

TEST(Identities, AreTheSourcesOwn) {
    const ReadBook read(ReadVCard, "BEGIN:VCARD\nVERSION:3.0\nUID: URN:UUID:A1 \nEND:VCARD\n");
    EXPECT_EQ(Identities(read.book).UidAt(0), "URN:UUID:A1");
    EXPECT_EQ(PlainUid(" URN:UUID:A1 "), "a1");
    EXPECT_EQ(PlainUid("A1"), "a1");
}

TEST(Identities, ComeFromWhatARecordHolds) {
    const std::string ada = UidOf("dn: cn=Ada\ncn: Ada\nmail: a@b\n");
    EXPECT_TRUE(std::regex_match(
        ada, std::regex("[0-9a-f]{8}-[0-9a-f]{4}-5[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}")))
        << ada;
    // The order, blanks, the time of saving and the way to write it down do not matter.
    EXPECT_EQ(ada,
              UidOf("dn: cn=Ada\nmail: a@b\nmodifytimestamp: 20010409210816Z\ncn:: QWRhIA==\n"));
    EXPECT_NE(ada, UidOf("dn: cn=Ada\ncn: Ada\nmail: a@c\n"));
    EXPECT_NE(ada, UidOf("dn: cn=Ada\nobjectclass: groupOfNames\ncn: Ada\nmail: a@b\n"));
}

TEST(Identities, NumberEqualRecords) {
    const std::string one = "dn: cn=Ada\ncn: Ada\n\n";
    const std::set<std::string> all = {
        UidOf(one + one + one, 0), UidOf(one + one + one, 1), UidOf(one + one + one, 2)};
    EXPECT_EQ(all.size(), 3U);
    EXPECT_TRUE(all.count(UidOf(one)));
    EXPECT_EQ(UidOf(one + one, 1), UidOf(one + one + one, 1));
}

// What was given once must stay: people's programs know their contacts by it.
TEST(Identities, NeverChange) {
    EXPECT_EQ(UidOf("dn: cn=Ada\ncn: Ada\nmail: a@b\n"),
              TextOf(Version5Uuid("person\nEMAIL:a@b\nFN:Ada\nX-ORVIK-LDIF-DN:cn=Ada")));
    EXPECT_EQ(TextOf(Version5Uuid("")), "5ab6b96f-8a2a-5003-be21-f4b608af41e4");
    EXPECT_EQ(TextOf(Version5Uuid("person\nEMAIL:a@b")), "2c1ef2e9-32b3-562a-87dc-1f5bdcb4b342");
}

}  // namespace
}  // namespace orvik::book
