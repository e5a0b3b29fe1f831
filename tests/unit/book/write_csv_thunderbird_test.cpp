#include <gtest/gtest.h>

#include "unit/book/written_table.h"

namespace orvik::book {
namespace {

using test::Card;
using test::Written;

Written Thunderbird(const std::string& lines) {
    return {CsvProgram::Thunderbird, Card(lines)};
}

TEST(WriteCsvForThunderbird, WritesAPerson) {
    const Written written = Thunderbird(
        "UID:1\nN:Abbott;Ada;;;\nFN:Ada A.\nNICKNAME:ada\nEMAIL:a@example.org\nTEL;TYPE=home:1\n"
        "TEL;TYPE=cell:2\nADR;TYPE=work:;Shed;Quay 1\\nRear;Bonn;NW;53111;Germany\n"
        "ORG:Club;Boats\nTITLE:Cox\nBDAY:1980-04-12\nNOTE:Rows\\nand sings\nX-AIM:ada1\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nLast Name: Abbott\nDisplay Name: Ada A.\nNickname: ada\n"
              "Primary Email: a@example.org\nScreen Name: ada1\nHome Phone: 1\nMobile Number: 2\n"
              "Work Address: Quay 1\\x0ARear\nWork Address 2: Shed\nWork City: Bonn\n"
              "Work State: NW\nWork ZipCode: 53111\nWork Country: Germany\nJob Title: Cox\n"
              "Department: Boats\nOrganization: Club\nBirth Year: 1980\nBirth Month: 4\n"
              "Birth Day: 12\nNotes: Rows\\x0Aand sings\n");
    EXPECT_EQ(written.Told(), "");
    EXPECT_EQ(written.csv.find('\r'), std::string::npos);
    EXPECT_TRUE(written.csv.starts_with("First Name,Last Name,Display Name,"));
}

TEST(WriteCsvForThunderbird, KeepsTheRestInNotes) {
    const Written written = Thunderbird(
        "N:Abbott;Ada;Berta;Dr.;\nFN:Ada\nNICKNAME:ada,aa\nEMAIL:1@example.org\n"
        "EMAIL;TYPE=pref:2@example.org\nEMAIL;TYPE=work:3@example.org\nTEL;TYPE=isdn:4\n"
        "ROLE:Steers\nNOTE:Rows\nANNIVERSARY:2005-06-30\nCATEGORIES:Crew,Friends\nX-FOO:bar\n"
        "BDAY;VALUE=text:circa 1800\nADR;TYPE=home:Box 7;;Lane;;;;\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nLast Name: Abbott\nDisplay Name: Ada\nNickname: ada\n"
              "Primary Email: 2@example.org\nSecondary Email: 1@example.org\nHome Address: Lane\n"
              "Notes: Rows\\x0ANickname: aa\\x0ARole: Steers\\x0AAnniversary: 2005-06-30\\x0A"
              "X-FOO: bar\\x0ABirthday: circa 1800\\x0AOther address (Work): 3@example.org\\x0A"
              "Other phone (ISDN): 4\\x0APost box: Box 7\\x0AMiddle name: Berta\\x0A"
              "Name prefix: Dr.\\x0AGroup: Crew\\x0AGroup: Friends\n");
    EXPECT_EQ(written.read.book.Told.Count(What::Carried), 10U);
    EXPECT_EQ(written.read.book.Told.Count(What::Lost), 0U);
}

TEST(WriteCsvForThunderbird, LosesPicturesKeysAndLists) {
    const Written written(
        CsvProgram::Thunderbird,
        Card("UID:ada\nN:;Ada;;;\nFN:Ada\nPHOTO;ENCODING=b:/9j/\nKEY;ENCODING=b:AAAA\n"
             "PHOTO;VALUE=uri:https://example.org/a.jpg\n") +
            Card("FN:Crew\nN:Crew;;;;\nX-ADDRESSBOOKSERVER-KIND:group\n"
                 "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:ada\n"));
    EXPECT_EQ(written.Told(),
              "lost 10 FN: Crew: is a list, and the target knows none\n"
              "lost 1 PHOTO: /9j/: has no place in the target\n"
              "lost 1 KEY: AAAA: has no place in the target\n"
              "carried 1 PHOTO: https://example.org/a.jpg: has no place in the target\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nDisplay Name: Ada\nNotes: Picture: https://example.org/a.jpg\n");
    EXPECT_EQ(test::RowsOf(written.csv).size(), 2U);
}

TEST(WriteCsvForThunderbird, SaysWhichKindsItDrops) {
    const Written written = Thunderbird(
        "N:;Ada;;;\nFN:Ada\nEMAIL;TYPE=internet:1@example.org\nEMAIL;TYPE=home:2@example.org\n"
        "TEL;TYPE=fax,work:3\nTEL;TYPE=home,voice:4\nTEL:5\nTEL:6\n");
    EXPECT_EQ(written.Told(),
              "doubtful 1 EMAIL: 2@example.org: is kept without its kind\n"
              "doubtful 1 TEL: 3: is kept without its kind\n"
              "carried 1 TEL: 6: has no place in the target\n");
    EXPECT_EQ(written.Row(),
              "First Name: Ada\nDisplay Name: Ada\nPrimary Email: 1@example.org\n"
              "Secondary Email: 2@example.org\nWork Phone: 5\nHome Phone: 4\nFax Number: 3\n"
              "Notes: Other phone: 6\n");
}

TEST(WriteCsvForThunderbird, PutsColumnsBack) {
    const std::string table =
        "First Name,Last Name,Display Name,Primary Email,Birth Year,Birth Month,Birth Day,Notes\n"
        "Ada,Abbott,Ada,a@example.org,19xx,,,\"a\r\nb\"\nBo,,,,,4,12,\n";
    const Written written(CsvProgram::Thunderbird, table, test::ReadTable);
    EXPECT_EQ(written.Row(1),
              "First Name: Ada\nLast Name: Abbott\nDisplay Name: Ada\n"
              "Primary Email: a@example.org\nBirth Year: 19xx\nNotes: a\\x0D\\x0Ab\n");
    EXPECT_EQ(written.Row(2), "First Name: Bo\nBirth Month: 4\nBirth Day: 12\n");
}

TEST(WriteCsvForThunderbird, LeavesOutRecordsOfNothing) {
    const Written written = Thunderbird("UID:1\nN:;;;;\nFN:\n");
    EXPECT_EQ(test::RowsOf(written.csv).size(), 1U);
    EXPECT_EQ(written.Told(), "skipped 1 : : holds nothing\n");
}

}  // namespace
}  // namespace orvik::book
