#include "book/old/read_pine.h"

#include <string>

#include <gtest/gtest.h>

#include "book/old/read_abook.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

TEST(ReadPine, MakesPeopleAndLists) {
    const ReadBook read(ReadPine,
                        "ada\tAbbott, Ada\ta@x\tfolder\tRows\ton Tuesday\n"
                        "jb\t=?UTF-8?Q?Berg=2C_J=C3=B6rg?=\tjb@x\r\n"
                        "rowers\tCrew, Tuesday\t(ada, JB,\n   c@x,\n   \"Dorn, Di\" <d@x>,no)\t\n"
                        "   \tof\n   Tuesdays\n"
                        "#DELETED-98/04/01#fred\tFred\tf@x\n"
                        "# comment\n\n"
                        "\t\"Rowing, Inc\"\ti@x\n"
                        "gus\tGus\t(Gus <g@x>,Gus <h@x>)\n"
                        "empty\tNobody\t()\n"
                        "local\tLocal\tlu\n"
                        "other\t\tEd Eve <e@x>\n"
                        "again\t\tada\n"
                        "two\t\ta@x,b@x\n"
                        "junk\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:ada\nFN:Abbott, Ada\nN:Abbott;Ada;;;\nEMAIL:a@x\n"
              "X-ORVIK-PINE-fcc:folder\nNOTE:Rows\\x09on Tuesday\n"
              "person\nNICKNAME:jb\nFN:Berg, J\xC3\xB6rg\nN:Berg;J\xC3\xB6rg;;;\nEMAIL:jb@x\n"
              "list\nNICKNAME:rowers\nFN:Crew, Tuesday\nMEMBER:x-orvik-line:1\n"
              "MEMBER:x-orvik-line:2\nMEMBER:mailto:c@x\nMEMBER:cn=Dorn, Di,mail=d@x\n"
              "MEMBER;VALUE=text:no\nNOTE:of Tuesdays\n"
              "person\nFN:Rowing, Inc\nEMAIL:i@x\n"
              "person\nNICKNAME:gus\nFN:Gus\nN:;Gus;;;\nEMAIL:g@x\nEMAIL:h@x\n"
              "list\nNICKNAME:empty\nFN:Nobody\n"
              "person\nNICKNAME:local\nFN:Local\nN:;Local;;;\nEMAIL:lu\n"
              "person\nNICKNAME:other\nFN:Ed Eve\nN:Eve;Ed;;;\nEMAIL:e@x\n"
              "list\nNICKNAME:again\nMEMBER:x-orvik-line:1\n"
              "list\nNICKNAME:two\nMEMBER:mailto:a@x\nMEMBER:mailto:b@x\n");
    EXPECT_EQ(Told(read.book),
              "skipped 8 : #DELETED-98/04/01#fred\\x09"
              "Fred\\x09"
              "f@x: is marked as deleted\n"
              "doubtful 15 N: Ed Eve: was parted at a blank into given and family name, as all "
              "such names of the file\n"
              "skipped 18 : junk: belongs to no record\n");
    EXPECT_EQ(read.book.Contacts[2].From.Line, 3U);
    EXPECT_EQ(read.book.Contacts[2].From.Lines, 5U);
}

TEST(ReadPine, ReadsWhatTheProgramWouldNotWrite) {
    const ReadBook read(ReadPine, "ben o\tBen\tb@x\n\"q\tQuin\tq@x\nlu\tLu\nada\tAda\ta@x\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:ben o\nFN:Ben\nN:;Ben;;;\nEMAIL:b@x\n"
              "person\nNICKNAME:\"q\nFN:Quin\nN:;Quin;;;\nEMAIL:q@x\n"
              "person\nNICKNAME:lu\nFN:Lu\nN:;Lu;;;\n"
              "person\nNICKNAME:ada\nFN:Ada\nN:;Ada;;;\nEMAIL:a@x\n");
    EXPECT_EQ(Told(read.book),
              "doubtful 1 nickname: ben o: has signs that the format does not know\n"
              "doubtful 2 nickname: \"q: has signs that the format does not know\n"
              "doubtful 3 : Lu: has fewer parts than it should\n");
}

TEST(ReadPine, ReadsLettersOfAnEntry) {
    const ReadBook read(ReadPine, "j\tJ\xF6rg\tj@x\nz\tZo\xC3\xAB\t(a@x,\n   J\xC3\xBC <b@x>)\n");
    EXPECT_EQ(Shown(read.book),
              "person\nNICKNAME:j\nFN:J\xC3\xB6rg\nN:;J\xC3\xB6rg;;;\nEMAIL:j@x\n"
              "list\nNICKNAME:z\nFN:Zo\xC3\xAB\nMEMBER:mailto:a@x\n"
              "MEMBER:cn=J\xC3\xBC,mail=b@x\n");
}

TEST(ReadAbook, KeepsAllKeys) {
    const ReadBook read(ReadAbook,
                        "# abook addressbook file\njunk\n\n[format]\nprogram=abook\nversion=1\n\n"
                        "[0]\nname=Ada Abbott\nemail=a@x, b@y,\naddress=1 Road, Ely\n"
                        "address2=Flat 2\ncity=Ely\nstate=S\nzip=Z\ncountry=UK\nphone=1\n"
                        "workphone=2\nfax=3\nmobile=4\nnick=ad,a\nurl=http://x/?a=b\n"
                        "notes=a, b; c\nanniversary=2001-04-09\ngroups=rowers,,friends\n"
                        "custom1=x=y\nempty=\nno sign\n[broken\ncity=Again\n"
                        "[99]\nnick=nameless\naddress2=Flat\n[2]\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:Ada Abbott\nN:Abbott;Ada;;;\nEMAIL:a@x\nEMAIL:b@y\nTEL;TYPE=home:1\n"
              "TEL;TYPE=work:2\nTEL;TYPE=fax:3\nTEL;TYPE=cell:4\nNICKNAME:ad\\,a\n"
              "URL:http://x/?a=b\nNOTE:a, b; c\nANNIVERSARY:2001-04-09\nCATEGORIES:rowers\n"
              "CATEGORIES:friends\nX-ORVIK-ABOOK-custom1:x=y\nX-ORVIK-ABOOK-no-field:no sign\n"
              "ADR:;;1 Road\\, Ely\\nFlat 2;Ely;S;Z;UK\n"
              "person\nNICKNAME:nameless\nADR:;;Flat;;;;\n"
              "person\n");
    EXPECT_EQ(Told(read.book),
              "skipped 2 : junk: belongs to no record\n"
              "doubtful 8 N: Ada Abbott: was parted at a blank into given and family name, as all "
              "such names of the file\n"
              "doubtful 8 : no sign: is no field\nskipped 29 : [broken: belongs to no record\n");
}

}  // namespace
}  // namespace orvik::book
