#include "book/write_ldif.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "book/ldif_line_writer.h"
#include "book/write_vcard.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;
using test::ReadBook;
using test::Shown;
using test::Told;

std::string Card(const std::string& lines) {
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
}

std::string Ldif(const std::string& cards, LdifAttributes set = LdifAttributes::Mozilla) {
    ReadBook read(ReadVCard, cards);
    return WriteLdif(read.book, set);
}

TEST(AppendLdifLine, IsValidForStrictReaders) {
    const struct {
        std::string Value;
        std::string Line;
    } rows[] = {
        {"plain: <text>", "a: plain: <text>\n"},
        {"", "a:\n"},
        {" first", "a:: IGZpcnN0\n"},
        {":first", "a:: OmZpcnN0\n"},
        {"<first", "a:: PGZpcnN0\n"},
        {"last ", "a:: bGFzdCA=\n"},
        {"J\xC3\xB6rg", "a:: SsO2cmc=\n"},
        {"a\nb", "a:: YQpi\n"},
        {"a\rb", "a:: YQ1i\n"},
        {"a\0b"s, "a:: YQBi\n"},
        {"a\tb", "a: a\tb\n"},
    };
    for (const auto& row : rows) {
        std::string line;
        AppendLdifLine("a", row.Value, line);
        EXPECT_EQ(line, row.Line);
    }
    std::string folded;
    AppendLdifLine("a", std::string(73, 'x'), folded);
    EXPECT_EQ(folded, "a: " + std::string(73, 'x') + "\n");
    folded.clear();
    AppendLdifLine("a", std::string(150, 'x'), folded);
    EXPECT_EQ(folded, "a: " + std::string(73, 'x') + "\n " + std::string(75, 'x') + "\n xx\n");
}

TEST(WriteLdif, KeepsWhatNobodyChangedByteForByte) {
    const std::string text = "junk\n\ndn: cn=Al\ncn:Al\n\n\ndn:cn=Bo\r\ncn: Bo";
    ReadBook read(ReadLdif, text);
    EXPECT_EQ(WriteLdif(read.book, std::nullopt), text);
    read.book.SetValue(read.book.Contacts[1], 0, "Ben");
    EXPECT_EQ(WriteLdif(read.book, std::nullopt),
              "version: 1\n\ndn: cn=Al\ncn:Al\n\ndn: cn=Ben\nobjectclass: top\n"
              "objectclass: person\nobjectclass: organizationalPerson\n"
              "objectclass: inetOrgPerson\nobjectclass: mozillaAbPersonAlpha\ncn: Ben\n");
    ReadBook again(ReadLdif, text);
    EXPECT_NE(WriteLdif(again.book, LdifAttributes::Mozilla), text);
}

TEST(WriteLdif, UsesTheNamesOfEachProgram) {
    const std::string card = Card(
        "UID:1\r\nN:Abbott;Ada;;;\r\nFN:Ada\r\nNICKNAME:ad\r\nEMAIL:a\r\nEMAIL:b\r\nEMAIL:c\r\n"
        "TEL;TYPE=cell:1\r\nORG:F;U\r\nADR;TYPE=work:;;1 Road;Town;;;DE\r\n");
    const std::string ends = "cn: Ada\nuid: 1\nsn: Abbott\ngivenName: Ada\n";
    EXPECT_EQ(Ldif(card, LdifAttributes::Netscape),
              "version: 1\n\ndn: cn=Ada,mail=a\nobjectclass: top\nobjectclass: person\n" + ends +
                  "xmozillanickname: ad\nmail: a\nmail: b\nmail: c\ncellPhone: 1\no: F\nou: U\n"
                  "streetAddress: 1 Road\nlocality: Town\ncountryName: DE\n");
    const std::string classes =
        "version: 1\n\ndn: cn=Ada,mail=a\nobjectclass: top\n"
        "objectclass: person\nobjectclass: organizationalPerson\n"
        "objectclass: inetOrgPerson\n";
    EXPECT_EQ(Ldif(card, LdifAttributes::Mozilla),
              classes + "objectclass: mozillaAbPersonAlpha\n" + ends +
                  "mozillaNickname: ad\nxmozillanickname: ad\nmail: a\nmozillaSecondEmail: b\n"
                  "mail: c\nmobile: 1\no: F\nou: U\nstreet: 1 Road\nl: Town\nc: DE\n");
    EXPECT_EQ(Ldif(card, LdifAttributes::KContacts),
              classes + ends +
                  "xmozillanickname: ad\nmail: a\nmozillaSecondEmail: b\notherMailbox: c\n"
                  "mobile: 1\no: F\ndepartment: U\nstreetAddress: 1 Road\nl: Town\nc: DE\n");
    EXPECT_EQ(Ldif(card, LdifAttributes::Evolution),
              classes + ends +
                  "xmozillanickname: ad\nmail: a\nmozillaSecondEmail: b\nmail: c\nmobile: 1\n"
                  "o: F\nou: U\nstreetAddress: 1 Road\nl: Town\nc: DE\n");
}

// Each record comes back from LDIF as it was, in each set.
TEST(WriteLdif, BringsBackWhatItCarries) {
    const std::string cards =
        Card(
            "UID:1\r\nN:Ab\\;bott,x;Ada;Eve;Dr.;Jr.\r\nFN:Dr. Ada\r\nFN;LANGUAGE=ja:Aya\r\n"
            "EMAIL;TYPE=home:a@b\r\nitem1.EMAIL:c@d\r\nitem1.X-ABLabel:Boat, house\r\n"
            "TEL;TYPE=HOME;TYPE=VOICE:1\r\nTEL:2\r\nTEL;TYPE=fax:3\r\nORG:F\\, Ltd;U;V\r\n"
            "ADR;TYPE=home;TYPE=pref:box;;1 Road\\n2 Road;Town\\;x;;;\r\n"
            "ADR;TYPE=work:box;ext;1 Road;Town;Shire;1;DE\r\nADR:other;;;;;;\r\n"
            "LABEL:one\\ntwo\r\nURL:http://a\r\nNOTE:one\\, two\\n\r\nNOTE:three\r\n"
            "BDAY;VALUE=date:1980-04-12\r\nREV:2001-04-09T21:08:16Z\r\nX-Own;X-P=\"a;b\":v\\,w\r\n"
            "PHOTO;ENCODING=b;TYPE=JPEG:/9j/\r\nKEY;ENCODING=b:AAEC\r\nTITLE;LANGUAGE=de:Chef\r\n"
            "CATEGORIES:a,b\\,c\r\nEMPTY:\r\nNOTE:three\r\nORG:F\\, Ltd;U;V\r\n"
            "PHOTO;ENCODING=b;TYPE=JPEG:no!\r\n") +
        Card("UID:2\r\nFN:B\xC3\xB6\r\nN:;;;;\r\nBDAY:--04-12\r\nADR:;;x;;;;\r\n");
    const ReadBook read(ReadVCard, cards);
    for (const LdifAttributes set : {LdifAttributes::Mozilla,
                                     LdifAttributes::Netscape,
                                     LdifAttributes::KContacts,
                                     LdifAttributes::Evolution}) {
        const std::string ldif = Ldif(cards, set);
        ReadBook back(ReadLdif, ldif);
        EXPECT_EQ(Told(back.book), "") << ldif;
        ASSERT_EQ(back.book.Contacts.size(), 2U);
        for (std::size_t i = 0; i < 2; ++i) {
            // Each property of the card is there, and nothing else.
            const auto lines = [](const std::string& shown) {
                std::multiset<std::string> all;
                for (std::size_t at = 0; at < shown.size();) {
                    const std::size_t end = shown.find('\n', at);
                    all.insert(shown.substr(at, end - at));
                    at = end + 1;
                }
                return all;
            };
            auto wanted = lines(Shown(read.book, read.book.Contacts[i]));
            // Says nothing.
            wanted.erase("N:;;;;");
            auto found = lines(Shown(back.book, back.book.Contacts[i]));
            // The same time.
            wanted.erase("REV:2001-04-09T21:08:16Z");
            found.erase("REV:20010409T210816Z");
            EXPECT_EQ(found, wanted) << ldif;
        }
    }
}

TEST(WriteLdif, BringsBackWhatCardsCarried) {
    const std::string ldif =
        "dn: uid=al,ou=people\nuid: al\nobjectclass: account\ncn: Al\nshoeSize: 42\n"
        "other;x-a:: AAEC\nphoto:< file:///x\nlonely words\ndescription:: YQpi\n";
    ReadBook read(ReadLdif, ldif);
    ReadBook card(ReadVCard, WriteVCard(read.book, Dialect::VCard30));
    const std::string back = WriteLdif(card.book, LdifAttributes::Mozilla);
    for (const char* const line : {"\ndn: uid=al,ou=people\n",
                                   "\nuid: al\n",
                                   "\nobjectclass: account\n",
                                   "\ncn: Al\n",
                                   "\nshoeSize: 42\n",
                                   "\nother;x-a:: AAEC\n",
                                   "\nphoto:< file:///x\n",
                                   "\nno-field: lonely words\n",
                                   "\ndescription:: YQpi\n"}) {
        EXPECT_NE(back.find(line), std::string::npos) << line << back;
    }
}

TEST(WriteLdif, NamesMembersAsTheirRecordsAreNamed) {
    EXPECT_EQ(
        Ldif(Card("UID:1\r\nFN:Ada\r\nEMAIL:a@b\r\n") +
                 Card("UID:2\r\nFN:Team\r\nX-ADDRESSBOOKSERVER-KIND:group\r\n"
                      "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\r\n"
                      "X-ADDRESSBOOKSERVER-MEMBER:mailto:n@x\r\n"
                      "X-ADDRESSBOOKSERVER-MEMBER;X-ORVIK-DN=\"cn=No,mail=o@x\":mailto:o@x\r\n"
                      "X-ADDRESSBOOKSERVER-MEMBER:none\r\n"),
             LdifAttributes::Netscape)
            .substr(std::string("version: 1\n\ndn: cn=Ada,mail=a@b\nobjectclass: top\n"
                                "objectclass: person\ncn: Ada\nuid: 1\nmail: a@b\n\n")
                        .size()),
        "dn: cn=Team\nobjectclass: top\nobjectclass: groupOfNames\ncn: Team\nuid: 2\n"
        "member: cn=Ada,mail=a@b\nmember: mail=n@x\nmember: cn=No,mail=o@x\n"
        "member: cn=none\n"
        "x-orvik-vcard-x-addressbookserver-member: X-ADDRESSBOOKSERVER-MEMBER:none\n");
}

TEST(WriteLdif, GivesThunderbirdTwoAddressesAndCarriesTheRest) {
    const std::string card = "UID:1\nFN:A\nEMAIL:a@x\nEMAIL:b@x\nEMAIL:c@x\n";
    const std::string text = Ldif(Card(card), LdifAttributes::Thunderbird);
    EXPECT_NE(text.find("mail: a@x\nmozillaSecondEmail: b@x\n"
                        "x-orvik-vcard-email;x-more: EMAIL:c@x\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("objectclass: mozillaAbPersonAlpha\n"), std::string::npos);
    EXPECT_NE(Ldif(Card(card)).find("mail: c@x\n"), std::string::npos);
}

TEST(WriteLdif, TellsKContactsHowAListIsCalled) {
    const std::string list = Card("UID:1\nFN:Crew\nX-ADDRESSBOOKSERVER-KIND:group\n");
    EXPECT_NE(Ldif(list, LdifAttributes::KContacts).find("cn: Crew\ndisplay-name: Crew\n"),
              std::string::npos);
    EXPECT_EQ(Ldif(list).find("display-name"), std::string::npos);
}

TEST(WriteLdif, TellsWhereRecordsStand) {
    const std::string al = "dn: cn=Al\ncn: Al\n";
    const std::string bo = "dn: cn=Bo\ncn: Bo\n";
    ReadBook read(ReadLdif, al + "\n\n" + bo);
    RecordPlaces places;
    const std::string text = WriteLdif(read.book, std::nullopt, &places);
    EXPECT_EQ(text, "version: 1\n\n" + al + "\n" + bo);
    EXPECT_EQ(places, (RecordPlaces{11, 12 + al.size(), text.size()}));
}

}  // namespace
}  // namespace orvik::book
