#include <gtest/gtest.h>

#include "unit/book/written_table.h"

namespace orvik::book {
namespace {

using test::Card;
using test::Written;

Written Google(const std::string& lines) {
    return {CsvProgram::Google, Card(lines)};
}

TEST(WriteCsvForGoogle, WritesAPerson) {
    const Written written = Google(
        "N:Abbott;Ada;Berta;Dr.;MA\nFN:Ada Abbott\nNICKNAME:ada\nORG:Club;Boats\nTITLE:Cox\n"
        "BDAY:19800412\nNOTE:Rows\nCATEGORIES:Crew\nEMAIL;TYPE=home,pref:1@example.org\n"
        "EMAIL:2@example.org\nTEL;TYPE=cell:3\nTEL;TYPE=fax,work:4\nTEL;TYPE=car:5\n"
        "ADR;TYPE=home:Box 7;Shed,Left;Lane 3;Ulm;BW;89073;Germany\n"
        "LABEL;TYPE=home:Ada\\nLane 3\nURL;TYPE=work:https://example.org\n"
        "RELATED;TYPE=friend;VALUE=text:Bo\nPHOTO;VALUE=uri:https://example.org/a.jpg\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nMiddle Name: Berta\nLast Name: Abbott\nName Prefix: Dr.\n"
              "Name Suffix: MA\nNickname: ada\nOrganization Name: Club\nOrganization Title: Cox\n"
              "Organization Department: Boats\nBirthday: 1980-04-12\nNotes: Rows\n"
              "Photo: https://example.org/a.jpg\nLabels: * myContacts ::: Crew\n"
              "E-mail 1 - Label: * Home\nE-mail 1 - Value: 1@example.org\n"
              "E-mail 2 - Value: 2@example.org\nPhone 1 - Label: Mobile\nPhone 1 - Value: 3\n"
              "Phone 2 - Label: Work Fax\nPhone 2 - Value: 4\nPhone 3 - Label: Car phone\n"
              "Phone 3 - Value: 5\nAddress 1 - Label: Home\nAddress 1 - Formatted: Ada\\x0ALane 3\n"
              "Address 1 - Street: Lane 3\nAddress 1 - City: Ulm\nAddress 1 - PO Box: Box 7\n"
              "Address 1 - Region: BW\nAddress 1 - Postal Code: 89073\n"
              "Address 1 - Country: Germany\nAddress 1 - Extended Address: Shed, Left\n"
              "Relation 1 - Label: Friend\nRelation 1 - Value: Bo\nWebsite 1 - Label: Work\n"
              "Website 1 - Value: https://example.org\n");
    EXPECT_EQ(written.Told(), "");
}

TEST(WriteCsvForGoogle, WritesNamesAsPeopleExpect) {
    EXPECT_EQ(Google("N:;;;;\nFN:Bo Bell\nBDAY:--0412\n").Row(),
              "First Name: Bo Bell\nBirthday: --04-12\nLabels: * myContacts\n");
    EXPECT_EQ(Google("N:;;;;\nFN:Club\nORG:Club\n").Row(),
              "Organization Name: Club\nLabels: * myContacts\n");
    const Written other = Google("N:Abbott;Ada;;;\nFN:The Countess\n");
    EXPECT_EQ(other.Row(),
              "First Name: Ada\nLast Name: Abbott\nFile As: The Countess\nLabels: * myContacts\n");
    EXPECT_EQ(other.Told(), "carried 1 FN: The Countess: has no place in the target\n");
    EXPECT_EQ(Google("N:Abbott;Ada;;;\nFN:Abbott\\, Ada\n").Told(), "");
}

TEST(WriteCsvForGoogle, WritesLabelsOfTheUser) {
    const Written written = Google(
        "N:;Ada;;;\nFN:Ada\nitem1.TEL:1\nitem1.X-ABLabel:Boat\nitem2.TEL:2\n"
        "item2.X-ABLabel:a ::: b\nitem3.X-ABDATE:2005-06-30\nitem3.X-ABLabel:First boat\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nNotes: First boat: 2005-06-30\\x0Aa ::: b: 2\n"
              "Labels: * myContacts\nPhone 1 - Label: Boat\nPhone 1 - Value: 1\n"
              "Phone 2 - Value: 2\n");
}

TEST(WriteCsvForGoogle, KnowsItsOwnGroupInBothSpellings) {
    const std::string lines = "N:;Ada;;;\nFN:Ada\nCATEGORIES:* My Contacts,Crew\n";
    EXPECT_EQ(Google(lines).Row(), "First Name: Ada\nLabels: * myContacts ::: Crew\n");
    const std::string both = "N:;Ada;;;\nFN:Ada\nCATEGORIES:* My Contacts,* myContacts\n";
    EXPECT_EQ(Google(both).Row(), "First Name: Ada\nLabels: * myContacts\n");
}

TEST(WriteCsvForGoogle, NeverWritesWhatIsTakenForTwo) {
    const Written written = Google("N:;Ada;;;\nFN:Ada\nTEL:1 ::: 2\nCATEGORIES:a ::: b\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nNotes: Other phone: 1 ::: 2\\x0AGroup: a ::: b\n"
              "Labels: * myContacts\n");
}

TEST(WriteCsvForGoogle, HasAsManyColumnsAsThereAreValues) {
    std::string lines = "N:;Ada;;;\nFN:Ada\n";
    for (int i = 0; i < 35; ++i) {
        lines += "EMAIL:" + std::to_string(i) + "@example.org\n";
    }
    const Written written = Google(lines);
    const auto header = test::RowsOf(written.csv)[0];
    EXPECT_EQ(header.size(), 17U + 60U);
    EXPECT_EQ(header.back(), "E-mail 30 - Value");
    EXPECT_EQ(written.read.book.Told.Count(What::Carried), 5U);
    EXPECT_NE(written.Row().find("Other address: 34@example.org"), std::string::npos);
    EXPECT_EQ(test::RowsOf(Google("N:;Ada;;;\n").csv)[0].size(), 17U);
}

TEST(WriteCsvForGoogle, MakesLabelsOfLists) {
    const Written written(
        CsvProgram::Google,
        Card("UID:ada\nN:;Ada;;;\nFN:Ada\nCATEGORIES:Crew\n") + Card("UID:bo\nN:;Bo;;;\nFN:Bo\n") +
            Card("UID:crew\nFN:Crew\nN:;;;;\nNOTE:Rows\nX-ADDRESSBOOKSERVER-KIND:group\n"
                 "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:ada\n"
                 "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:inner\n"
                 "X-ADDRESSBOOKSERVER-MEMBER:mailto:cy@example.org\n") +
            Card("UID:inner\nFN:Inner\nN:;;;;\nX-ADDRESSBOOKSERVER-KIND:group\n"
                 "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:bo\n"
                 "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:crew\n") +
            Card("UID:empty\nFN:Empty\nN:;;;;\nX-ADDRESSBOOKSERVER-KIND:group\n"));
    EXPECT_EQ(written.Row(1), "First Name: Ada\nLabels: * myContacts ::: Crew ::: Inner\n");
    EXPECT_EQ(written.Row(2), "First Name: Bo\nLabels: * myContacts ::: Crew ::: Inner\n");
    EXPECT_EQ(test::RowsOf(written.csv).size(), 3U);
    EXPECT_EQ(written.Told(),
              "carried 14 X-ADDRESSBOOKSERVER-MEMBER: urn:uuid:inner: is a list in a list\n"
              "lost 14 X-ADDRESSBOOKSERVER-MEMBER: mailto:cy@example.org: is not in these files\n"
              "lost 14 NOTE: Rows: has no place in the target\n"
              "carried 25 X-ADDRESSBOOKSERVER-MEMBER: urn:uuid:crew: is a list in a list\n"
              "lost 34 FN: Empty: holds nothing\n");
}

// A chain of lists, each with the next one in it, would give each person a label of each.
TEST(WriteCsvForGoogle, StaysLinearWithListsInLists) {
    constexpr int kLists = 2000;
    std::string cards;
    for (int i = 0; i < kLists; ++i) {
        const std::string number = std::to_string(i);
        cards += Card("UID:p" + number + "\nFN:P" + number + "\n");
        cards += Card("UID:l" + number + "\nFN:L" + number +
                      "\nX-ADDRESSBOOKSERVER-KIND:group\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:p" +
                      number + "\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:l" +
                      std::to_string(i + 1 < kLists ? i + 1 : 0) + "\n");
    }
    const Written written(CsvProgram::Google, cards);
    EXPECT_GT(written.read.book.Told.Count(What::Lost), 0U);
    EXPECT_LT(written.csv.size(), 20'000'000U);
    // Whoever is in a list itself has its label all the same.
    EXPECT_NE(written.Row(kLists).find("L1999"), std::string::npos);
}

}  // namespace
}  // namespace orvik::book
