#include <gtest/gtest.h>

#include "unit/book/written_table.h"

namespace orvik::book {
namespace {

using test::Card;
using test::Written;

Written Outlook(const std::string& lines) {
    return {CsvProgram::Outlook, Card(lines)};
}

TEST(WriteCsvForOutlook, WritesAPerson) {
    const Written written = Outlook(
        "N:Abbott;Ada;Berta;Dr.;MA\nFN:Ada Abbott\nORG:Club;Boats\nTITLE:Cox\nROLE:Steers\n"
        "ADR;TYPE=work:Box 7;Shed,Left,Back;Quay\\n1;Bonn;NW;53111;Germany\nTEL;TYPE=work:1\n"
        "TEL;TYPE=work:2\nTEL;TYPE=cell:3\nTEL;TYPE=home,fax:4\nTEL;TYPE=x-assistant:5\n"
        "BDAY:1980-04-12\nANNIVERSARY:2005-06-30\nCATEGORIES:Crew,Friends\n"
        "EMAIL:a@example.org\nGENDER:F\nX-SPOUSE:Bob\nNOTE:a\\nb\nURL:https://example.org\n"
        "X-CUSTOM1:one\n");
    EXPECT_EQ(written.Row(),
              "Title: Dr.\nFirst Name: Ada\nMiddle Name: Berta\nLast Name: Abbott\nSuffix: MA\n"
              "Company: Club\nDepartment: Boats\nJob Title: Cox\n"
              "Business Street: Quay\\x0D\\x0A1\nBusiness Street 2: Shed\n"
              "Business Street 3: Left, Back\nBusiness City: Bonn\nBusiness State: NW\n"
              "Business Postal Code: 53111\nBusiness Country/Region: Germany\n"
              "Assistant's Phone: 5\nBusiness Phone: 1\nBusiness Phone 2: 2\nHome Fax: 4\n"
              "Mobile Phone: 3\nAnniversary: 6/30/2005\nBirthday: 4/12/1980\n"
              "Business Address PO Box: Box 7\nCategories: Crew;Friends\n"
              "E-mail Address: a@example.org\nE-mail Type: SMTP\n"
              "E-mail Display Name: Ada Abbott (a@example.org)\nGender: Female\nNotes: a\\x0Ab\n"
              "Profession: Steers\nSpouse: Bob\nUser 1: one\nWeb Page: https://example.org\n");
    EXPECT_EQ(written.Told(), "");
}

TEST(WriteCsvForOutlook, KeepsTheRestInNotes) {
    const Written written = Outlook(
        "N:Abbott;Ada;;;\nFN:The Countess\nNICKNAME:al\nEMAIL:1@x.org\nEMAIL:2@x.org\n"
        "EMAIL:3@x.org\nEMAIL:x@y.org\nBDAY:--0412\nCATEGORIES:a\\;b\nTEL;TYPE=cell:1\n"
        "TEL;TYPE=cell:2\nTEL;TYPE=cell:3\nTEL;TYPE=fax:4\nTEL:5\n"
        "X-SOCIALPROFILE;TYPE=x:y\nLABEL;TYPE=home:Ada\n");
    EXPECT_NE(written.Row().find("Nickname: al\\x0D\\x0ABirthday: --0412\\x0D\\x0A"
                                 "X-SOCIALPROFILE: y\\x0D\\x0AOther address: x@y.org\\x0D\\x0A"
                                 "Other phone (Mobile): 3\\x0D\\x0AAddress label: Ada\\x0D\\x0A"
                                 "Name: The Countess\\x0D\\x0AGroup: a;b"),
              std::string::npos)
        << written.Row();
    EXPECT_NE(written.Row().find("Other Phone: 2\n"), std::string::npos);
    EXPECT_NE(written.Row().find("Other Fax: 4\n"), std::string::npos);
    EXPECT_NE(written.Row().find("Primary Phone: 5\n"), std::string::npos);
}

TEST(WriteCsvForOutlook, WritesPostalAddressesByKind) {
    const Written written = Outlook(
        "N:;Ada;;;\nFN:Ada\nADR:;;One;;;;\nADR;TYPE=home:;;Two;;;;\nADR;TYPE=home:;;Three;;;;\n"
        "ADR;TYPE=other:;;Four;;;;\nADR;TYPE=other:;;Five;Ulm;;;\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nBusiness Street: One\nHome Street: Two\nOther Street: Four\n"
              "Notes: Other postal address (Home): Three\\x0D\\x0A"
              "Other postal address (Other): Five, Ulm\n");
}

TEST(WriteCsvForOutlook, NamesLettersThatItLoses) {
    const std::string lines =
        "N:M\u00FCller;Jo\u0308rg;;;\nFN:Jo\u0308rg M\u00FCller\nTITLE:\u0141\u00F3d\u017A\n";
    const Written classic = Outlook(lines);
    EXPECT_EQ(classic.Row(),
              "First Name: J\xF6rg\nLast Name: M\xFCller\nJob Title: ?\xF3"
              "d?\n");
    EXPECT_EQ(classic.Told(),
              "lost 1 TITLE: \u0141\u00F3d\u017A: has letters that the target's set has not\n");
    const Written newer(CsvProgram::OutlookNew, Card(lines));
    EXPECT_TRUE(newer.csv.starts_with("\xEF\xBB\xBFTitle,"));
    EXPECT_EQ(newer.Row(),
              "First Name: Jo\u0308rg\nLast Name: M\u00FCller\nJob Title: \u0141\u00F3d\u017A\n");
}

TEST(WriteCsvForOutlook, PutsColumnsOfOtherLanguagesBack) {
    const Written written(
        CsvProgram::Outlook,
        "Vorname,Nachname,E-Mail-Adresse,E-Mail-Typ,Konto,Hobby,Geschlecht,Foo\r\n"
        "Ada,Abbott,/O=X/CN=A,EX,k1,Rows,Keine Angabe,bar\r\n",
        test::ReadTable);
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nLast Name: Abbott\nAccount: k1\nE-mail Address: /O=X/CN=A\n"
              "E-mail Type: EX\nE-mail Display Name: Ada Abbott (/O=X/CN=A)\nHobby: Rows\n"
              "Notes: Foo: bar\n");
}

TEST(WriteCsvForOutlook, DropsTheGroupOfEverybody) {
    EXPECT_EQ(Outlook("N:;Ada;;;\nFN:Ada\nCATEGORIES:* myContacts,Crew\n").Row(),
              "First Name: Ada\nCategories: Crew\n");
}

}  // namespace
}  // namespace orvik::book
