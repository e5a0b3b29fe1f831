#include "book/facts.h"

#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ProgramRow {
    std::string_view Text;
    std::string_view Program;
};

TEST(LdifProgramTest, AttributesTellTheProgram) {
    constexpr std::array kRows = {
        ProgramRow{"dn: cn=Al\ncn: Al\n", ""},
        ProgramRow{"dn: cn=Al\nxmozillanickname: al\n", "Netscape 4"},
        ProgramRow{"dn: cn=Al\nXNavNickname: al\n", "Netscape 4"},
        ProgramRow{"mozillaNickname: al\nxmozillanickname: al\n", "Mozilla"},
        ProgramRow{"objectclass: mozillaAbPersonAlpha\n", "Mozilla"},
        ProgramRow{"mozillaNickname: al\norganizationname: A\n", "KContacts"},
        ProgramRow{"# mozillaNickname: al\n cn: mozilla\ndescription: mozilla\n", ""},
    };
    for (const ProgramRow& row : kRows) {
        EXPECT_EQ(LdifProgram(row.Text), row.Program) << row.Text;
    }
}

TEST(LineEndsTest, TheMostFrequentIsNamedAndOthersAreCounted) {
    EXPECT_EQ(LineEndsOf("a\nb\n"), "LF");
    EXPECT_EQ(LineEndsOf("a\r\nb\r\nc\n"), "CR LF (1 other)");
    EXPECT_EQ(LineEndsOf("a\rb\rc\nd\r\n"), "CR (2 others)");
    EXPECT_EQ(LineEndsOf("a"), "no line end");
}

TEST(FactsTest, CountsWhatASourceHolds) {
    const test::ReadBook read(ReadLdif,
                              "dn: cn=Al\ncn: Al\nmail: a@b\nmail: c@d\ntelephonenumber: 1\n"
                              "xmozillanickname: al\nshoeSize: 42\ndescription: x\n\n"
                              "dn: cn=Bo\ncn: Bo\nxmozillanickname: bo\nshoeSize: 43\n\n"
                              "dn: cn=Crew\nobjectclass: groupOfNames\ncn: Crew\n"
                              "member: cn=Bo\n");
    const std::array formats = {Format::Ldif};
    const Facts facts = FactsOf(read.book, formats).front();
    EXPECT_EQ(facts.Form, "Netscape 4 LDIF");
    EXPECT_EQ(facts.LineEnds, "LF");
    EXPECT_EQ(facts.People, 2U);
    EXPECT_EQ(facts.Lists, 1U);
    EXPECT_EQ(facts.Addresses, 2U);
    EXPECT_EQ(facts.Phones, 1U);
    EXPECT_EQ(facts.Notes, 1U);
    EXPECT_EQ(facts.Nicknames, 2U);
    EXPECT_THAT(facts.NicknameNames, ElementsAre("xmozillanickname"));
    EXPECT_THAT(facts.UnknownNames, ElementsAre("dn", "shoeSize"));
}

TEST(FactsTest, NamesEachVersionOfCards) {
    const test::ReadBook read(ReadVCard,
                              "BEGIN:VCARD\nVERSION:3.0\nFN:Al\nEND:VCARD\n"
                              "BEGIN:VCARD\nVERSION:2.1\nFN:Bo\nNICKNAME:b,c\nEND:VCARD\n"
                              "BEGIN:VCARD\nVERSION:3.0\nFN:Cy\nEND:VCARD\n");
    const std::array formats = {Format::VCard};
    const Facts facts = FactsOf(read.book, formats).front();
    EXPECT_EQ(facts.Form, "vCard 2.1, 3.0");
    EXPECT_EQ(facts.People, 3U);
    EXPECT_THAT(facts.NicknameNames, IsEmpty());
    const test::ReadBook bare(ReadVCard, "BEGIN:VCARD\nFN:Al\nEND:VCARD\n");
    EXPECT_EQ(FactsOf(bare.book, formats).front().Form, "vCard without a version");
}

}  // namespace
}  // namespace orvik::book
