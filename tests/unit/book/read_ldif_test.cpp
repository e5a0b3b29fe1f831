#include "book/read_ldif.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;
using test::ReadBook;
using test::Shown;
using test::Told;

std::string Read(const std::string& ldif) {
    return Shown(ReadBook(ReadLdif, ldif).book);
}

std::string ToldOf(const std::string& ldif) {
    return Told(ReadBook(ReadLdif, ldif).book);
}

TEST(ReadLdif, TakesAPersonOfMozilla) {
    EXPECT_EQ(Read("dn: cn=Ada Abbott,mail=ada@example.org\n"
                   "objectclass: top\n"
                   "objectclass: person\n"
                   "objectclass: mozillaAbPersonAlpha\n"
                   "givenName: Ada\n"
                   "sn: Abbott\n"
                   "cn: Ada Abbott\n"
                   "mozillaNickname: ada\n"
                   "xmozillanickname: ada\n"
                   "mail: ada@example.org\n"
                   "mozillaSecondEmail: abbott@example.net\n"
                   "mozillaCustom1: rows on\n"
                   "  Tuesday\n"),
              "person\n"
              "FN:Ada Abbott\n"
              "NICKNAME:ada\n"
              "EMAIL:ada@example.org\n"
              "EMAIL:abbott@example.net\n"
              "X-CUSTOM1:rows on Tuesday\n"
              "N:Abbott;Ada;;;\n");
}

TEST(ReadLdif, TakesAListWithItsMembers) {
    EXPECT_EQ(Read("dn: cn=Rowers\n"
                   "objectclass: top\n"
                   "objectclass: groupOfNames\n"
                   "cn: Rowers\n"
                   "member: cn=Ada Abbott,mail=ada@example.org\n"
                   "member:: Y249SsO2cmcgQmVyZyxtYWlsPWpiQGV4YW1wbGUub3Jn\n"
                   "uniqueMember: cn=Other\n"),
              "list\n"
              "FN:Rowers\n"
              "MEMBER:cn=Ada Abbott,mail=ada@example.org\n"
              "MEMBER:cn=J\xC3\xB6rg Berg,mail=jb@example.org\n"
              "MEMBER:cn=Other\n");
}

TEST(ReadLdif, NamesAListThatHasNoNameAtAll) {
    const std::string two =
        "objectclass: top\nobjectclass: groupOfNames\nmember: cn=Al\n\n"
        "objectclass: groupOfUniqueNames\nuniquemember: cn=Al\n";
    EXPECT_EQ(Read(two), "list\nMEMBER:cn=Al\nFN:List 1\nlist\nMEMBER:cn=Al\nFN:List 2\n");
    EXPECT_EQ(ToldOf(two), "doubtful 1 : : has no name\ndoubtful 5 : : has no name\n");
}

TEST(ReadLdif, KeepsWhereEachRecordStands) {
    const std::string text = "# all\n\ndn: cn=Al\ncn: Al\n# inside\nmail: a\n\ndn: cn=Bo\ncn: Bo";
    const ReadBook read(ReadLdif, text);
    ASSERT_EQ(read.book.Contacts.size(), 2U);
    const Contact& al = read.book.Contacts[0];
    EXPECT_EQ(al.From.Line, 3U);
    EXPECT_EQ(al.From.Lines, 4U);
    EXPECT_EQ(read.book.BytesOf(al), "dn: cn=Al\ncn: Al\n# inside\nmail: a\n");
    EXPECT_EQ(al.Properties[1].Line, 6U);
    const Contact& bo = read.book.Contacts[1];
    EXPECT_EQ(bo.From.Line, 8U);
    EXPECT_EQ(read.book.BytesOf(bo), "dn: cn=Bo\ncn: Bo");
}

TEST(ReadLdif, TakesEachLineEndAndEachKindOfEnd) {
    for (const std::string end : {"\n", "\r\n", "\r", "\r\r\n"}) {
        const std::string text = "version: 1" + end + end + end + "dn: cn=Al" + end + "cn: A" +
                                 end + " l" + end + "mail: a" + end + end + "dn: cn=Bo" + end +
                                 "cn: Bo";
        for (const std::string& last : {std::string(), end, end + end}) {
            EXPECT_EQ(Read("\xEF\xBB\xBF" + text + last),
                      "person\nFN:Al\nEMAIL:a\nX-ORVIK-LDIF-dn:cn=Al\nperson\nFN:Bo\n")
                << testing::PrintToString(end);
            EXPECT_EQ(ToldOf(text + last), "");
        }
    }
}

TEST(ReadLdif, JoinsBytesBeforeItDecodesThem) {
    EXPECT_EQ(Read("dn: cn=J\xC3\n \xB6rg\ncn:: SsO2c\n mc=\n"), "person\nFN:J\xC3\xB6rg\n");
}

TEST(ReadLdif, ReadsAttributesInAnyCaseAndWithAnyBlanks) {
    EXPECT_EQ(Read("DN:cn=Al\nCN:Al\nMail:  \t a@b \nDESCRIPTION:\nx-Own:\n"),
              "person\nFN:Al\nEMAIL:a@b "
              "\nX-ORVIK-LDIF-DESCRIPTION:\nX-ORVIK-LDIF-x-Own:\nX-ORVIK-LDIF-dn:cn=Al\n");
}

TEST(ReadLdif, KeepsEachValueOfAnAttribute) {
    EXPECT_EQ(Read("dn: mail=a\nmail: a\nmail: b\nmail: a\nsn: One\nsn: Two\ncn: X\ncn: Y\n"),
              "person\nEMAIL:a\nEMAIL:b\nFN:X\nX-ORVIK-LDIF-cn:Y\n"
              "N:One;;;;\nX-ORVIK-LDIF-sn:Two\nX-ORVIK-LDIF-dn:mail=a\n");
}

TEST(ReadLdif, PutsPhonesAddressesAndWorkTogether) {
    EXPECT_EQ(Read("dn: cn=Al\ncn: Al\n"
                   "xmozillaanyphone: 1\ntelephoneNumber: 1\nhomephone: 2\nfax: 3\npager: 4\n"
                   "mobile: 5\ncarphone: 6\n"
                   "o: Firm, Ltd\nou: Sales\ntitle: Boss\n"
                   "postOfficeBox: 9\nstreet:: MSBSb2FkDQoyIFJvYWQ=\nmozillaWorkStreet2: back\n"
                   "l: Town\nst: Shire\npostalCode: 123\nc: DE\n"
                   "homepostaladdress: 1 Lane $ Farm \\24 \\5C end\n"
                   "mozillaHomeCountryName: France\n"
                   "workurl: http://a\nlabeledURI: http://b My page\n"),
              "person\nFN:Al\n"
              "TEL;TYPE=work:1\nTEL;TYPE=home:2\nTEL;TYPE=fax:3\nTEL;TYPE=pager:4\n"
              "TEL;TYPE=cell:5\nTEL;TYPE=car:6\n"
              "TITLE:Boss\n"
              "URL;TYPE=work:http://a\nURL;TYPE=work;X-ORVIK-LABEL=My page:http://b\n"
              "ORG:Firm\\, Ltd;Sales\n"
              "ADR;TYPE=work:9;back;1 Road\\n2 Road;Town;Shire;123;DE\n"
              "ADR;TYPE=home:;;1 Lane\\nFarm $ \\\\ end;;;;France\n");
}

TEST(ReadLdif, KnowsWhatNetscapeAndKContactsMeant) {
    EXPECT_EQ(Read("dn: cn=Al\ncn: Al\npostOfficeBox: 1 Road\nxmozillaanyphone: 7\n"),
              "person\nFN:Al\nADR;TYPE=work:;;1 Road;;;;\nTEL;TYPE=work:7\n");
    EXPECT_EQ(Read("dn: cn=Al\ncn: Al\no: F\norganizationname: F\nou: Chef\ndepartment: D\n"),
              "person\nFN:Al\nROLE:Chef\nORG:F;D\n");
    EXPECT_EQ(Read("dn: cn=Al\ncn: Al\nou: Only\nxmozillausehtmlmail: true\n"
                   "mozillaUseHtmlMail: maybe\n"),
              "person\nFN:Al\nX-MOZILLA-HTML:TRUE\nX-ORVIK-LDIF-mozillaUseHtmlMail:maybe\n"
              "ORG:;Only\n");
}

TEST(ReadLdif, MakesDatesAndKeepsWhatIsNone) {
    EXPECT_EQ(Read("dn: cn=A\ncn: A\nbirthyear: 1980\nbirthmonth: 4\nbirthday: 12\n"
                   "modifytimestamp: 20010409210816Z\n"),
              "person\nFN:A\nREV:20010409T210816Z\nBDAY:1980-04-12\n");
    EXPECT_EQ(Read("dn: cn=A\ncn: A\nbirthmonth: 4\nbirthday: 12\nmodifytimestamp: 0Z\n"),
              "person\nFN:A\nX-ORVIK-LDIF-modifytimestamp:0Z\nBDAY:--04-12\n");
    EXPECT_EQ(Read("dn: cn=A\ncn: A\nbirthyear: 1980\nbirthday: 12\n"),
              "person\nFN:A\nBDAY:1980\nX-ORVIK-LDIF-birthday:12\n");
    EXPECT_EQ(Read("dn: cn=A\ncn: A\nbirthyear: 1980\nbirthmonth: May\n"),
              "person\nFN:A\nBDAY:1980\nX-ORVIK-LDIF-birthmonth:May\n");
    EXPECT_EQ(Read("dn: cn=A\ncn: A\nbirthmonth: 5\n"),
              "person\nFN:A\nX-ORVIK-LDIF-birthmonth:5\n");
}

TEST(ReadLdif, CarriesWhatHasNoNameInAVCard) {
    EXPECT_EQ(Read("dn: uid=al,ou=people\nuid: al\ncn: Al\nobjectClass: account\nshoeSize: 42\n"
                   "cn;lang-de: Alf\nou;lang-de: Verkauf\nmail;x-a;x-b: a\n"),
              "person\nX-ORVIK-LDIF-uid:al\nFN:Al\nX-ORVIK-LDIF-objectClass:account\n"
              "X-ORVIK-LDIF-shoeSize:42\nFN;LANGUAGE=de:Alf\n"
              "X-ORVIK-LDIF-ou;X-ORVIK-OPTIONS=lang-de:Verkauf\n"
              "X-ORVIK-LDIF-mail;X-ORVIK-OPTIONS=x-a;x-b:a\n"
              "X-ORVIK-LDIF-dn:uid=al,ou=people\n");
}

TEST(ReadLdif, TakesNumbersForNames) {
    EXPECT_EQ(Read("dn: cn=Al\ncn: Al\n2.5.4.20: 5\nmozilla_AimScreenName: al\n"),
              "person\nFN:Al\nX-ORVIK-LDIF-2.5.4.20:5\nX-AIM:al\n");
}

TEST(ReadLdif, TakesMailboxesOfExchange) {
    EXPECT_EQ(Read("dn: cn=A\ncn: A\nproxyAddresses: smtp:b@x\nproxyAddresses: SMTP:a@x\n"
                   "proxyAddresses: X500:/o=x\n"),
              "person\nFN:A\nEMAIL:b@x\nEMAIL;TYPE=pref:a@x\n"
              "X-ORVIK-LDIF-proxyAddresses:X500:/o=x\nX-ORVIK-LDIF-dn:cn=A\n");
}

TEST(ReadLdif, KeepsPicturesAndBytesAsTheyAre) {
    EXPECT_EQ(Read("dn: cn=A\ncn: A\njpegPhoto:: /9j/4AA\n Q\nuserCertificate;binary:: MIIB\n"
                   "other:: AAEC\ndescription: a\0b\n"s),
              "person\nFN:A\nPHOTO;ENCODING=b;TYPE=JPEG:/9j/4AAQ\n"
              "X-ORVIK-LDIF-userCertificate;ENCODING=b;X-ORVIK-OPTIONS=binary:MIIB\n"
              "X-ORVIK-LDIF-other;ENCODING=b:AAEC\n"
              "X-ORVIK-LDIF-description;ENCODING=b:YQBi\n");
}

}  // namespace
}  // namespace orvik::book
