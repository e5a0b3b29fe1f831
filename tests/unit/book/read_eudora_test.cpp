#include "book/old/read_eudora.h"

#include <string>

#include <gtest/gtest.h>

#include "book/old/eudora_note.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

TEST(EudoraNote, HasFieldsAndWhatIsLeft) {
    const struct {
        const char* Note;
        const char* Expected;
    } rows[] = {
        {"", ""},
        {"Rows", "Rows"},
        {"<first:Ada><Last:Abbott> Rows ", "first=Ada;Last=Abbott;Rows"},
        {"Rows <phone:555>often", "phone=555;Rows often"},
        {"<name:Ada <the cox> Abbott>x", "name=Ada <the cox> Abbott;x"},
        {"<name:>", "name=;"},
        {"<b>bold</b> a<b <:x> <a b:c>", "<b>bold</b> a<b <:x> <a b:c>"},
        {"<3 <first:Ada>", "first=Ada;<3"},
        {"<<first:Ada>>", "first=Ada;<>"},
        {"see <http://x> <mailto:a@x>", "see <http://x> <mailto:a@x>"},
        {"<name:Ada", "<name:Ada"},
    };
    for (const auto& row : rows) {
        const EudoraNote note = EudoraNoteOf(row.Note);
        std::string shown;
        for (const EudoraField& one : note.Fields) {
            shown += std::string(one.Name) + "=" + std::string(one.Value) + ";";
        }
        EXPECT_EQ(shown + note.Text, row.Expected) << row.Note;
    }
}

// As the classic commands write people without a nickname.
TEST(ReadEudora, KeepsEachWithoutANickname) {
    const ReadBook read(ReadEudora,
                        "alias \"a\" a@x\r\nalias \"\" cy@x\r\nalias \"\" cy@x\r\nalias \"\"\r\n"
                        "alias \"\" Di Dorn <d@x>\r\nalias \"\" a,e@x\r\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:a\nEMAIL:a@x\nperson\nEMAIL:cy@x\nperson\nEMAIL:cy@x\n"
              "person\nEMAIL:d@x\nFN:Di Dorn\nN:Dorn;Di;;;\n"
              "list\nMEMBER:x-orvik-line:1\nMEMBER:mailto:e@x\n");
    EXPECT_EQ(Told(read.book),
              "skipped 4 : alias \"\": belongs to no record\n"
              "doubtful 5 N: Di Dorn: was parted at a blank into given and family name, as all "
              "such names of the file\n");
}

TEST(ReadEudora, PutsAliasAndNoteTogether) {
    const ReadBook read(
        ReadEudora,
        "note ada <first:Ada><last:Abbott><company:Club><title:Cox><address:1 Road\x03"
        "Flat 2><city:Ely><zip2:CB7><phone:1><fax:2><mobile:3><web:http://x><phone2:4>"
        "<otheremail:b@x,c@x\x03"
        "d@x><bp:Y><first:Again>Rows\x03often\r\n"
        "\r\n"
        "Alias ada Ada A. <a@x>\r\n"
        "junk\r\n"
        "alias \"ben berg\" b@x (Ben)\r\n"
        "note \"ben berg\" one\r\n"
        "note \"ben berg\" <name:Benjamin>\r\n"
        "alias rowers ADA, ben_berg,\"Cox, C\" <c@x>,d@x,No Body\r\n"
        "note rowers <name:The Rowers>\r\n"
        "alias none\r\n"
        "alias\r\n"
        "alias other rowers\r\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:ada\nEMAIL:a@x\nORG:Club\nTITLE:Cox\nTEL;TYPE=home:1\n"
              "TEL;TYPE=home;TYPE=fax:2\nTEL;TYPE=home;TYPE=cell:3\nURL;TYPE=home:http://x\n"
              "TEL;TYPE=work:4\nEMAIL:b@x\nEMAIL:c@x\nEMAIL:d@x\nX-ORVIK-EUDORA-bp:Y\n"
              "X-ORVIK-EUDORA-first:Again\nX-ORVIK-EUDORA-alias-name:Ada A.\n"
              "FN:Ada Abbott\nN:Abbott;Ada;;;\n"
              "ADR;TYPE=home:;;1 Road\\nFlat 2;Ely;;;\nADR;TYPE=work:;;;;;CB7;\n"
              "NOTE:Rows\\x0Aoften\n"
              "person\nNICKNAME:ben berg\nEMAIL:b@x\nX-ORVIK-EUDORA-alias-name:Ben\n"
              "FN:Benjamin\nN:;Benjamin;;;\nNOTE:one\n"
              "list\nNICKNAME:rowers\nMEMBER:x-orvik-line:1\nMEMBER:x-orvik-line:5\n"
              "MEMBER:cn=Cox, C,mail=c@x\nMEMBER:mailto:d@x\nMEMBER;VALUE=text:No Body\n"
              "FN:The Rowers\n"
              "person\nNICKNAME:none\n"
              "list\nNICKNAME:other\nMEMBER:x-orvik-line:8\n");
    EXPECT_EQ(Told(read.book),
              "skipped 4 : junk: belongs to no record\nskipped 11 : alias: belongs to no record\n");
}

TEST(ReadEudora, ReadsTheOldestForm) {
    const ReadBook read(ReadEudora,
                        "<ada>\r\n>Ada Abbott <a@x>\r\n<ada>\r\n>Rows <phone:5>\r\n>often\r\n"
                        "<rowers>\r\n>ada\r\nb@x,\r\n>c@x\r\n\r\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:ada\nEMAIL:a@x\nTEL;TYPE=home:5\nFN:Ada Abbott\n"
              "N:Abbott;Ada;;;\nNOTE:Rows\\x0Aoften\n"
              "list\nNICKNAME:rowers\nMEMBER:x-orvik-line:1\nMEMBER:mailto:b@x\n"
              "MEMBER:mailto:c@x\n");
}

TEST(ReadEudora, ReadsLettersOfMacs) {
    const ReadBook read(ReadEudora, "alias j J\x9Arg <j@x>\ralias n a@x\rnote n Z\x9F\r");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:j\nEMAIL:j@x\nFN:J\xC3\xB6rg\nN:;J\xC3\xB6rg;;;\n"
              "person\nNICKNAME:n\nEMAIL:a@x\nNOTE:Z\xC3\xBC\n");
}

}  // namespace
}  // namespace orvik::book
