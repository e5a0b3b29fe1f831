#include <string>

#include <gtest/gtest.h>

#include "book/old/read_pegasus_list.h"
#include "book/old/read_pegasus_text.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;
using test::ReadBook;
using test::Shown;
using test::Told;

TEST(ReadPegasusList, KeepsAllLines) {
    const ReadBook read(ReadPegasusList,
                        "\\TITLE Rowers \r\n\\NOSIG Y\r\n\\\r\n\r\nAda Abbott\r\nBerg, Ben\r\n"
                        "\"Cox, C\" <c@x>\r\nd@x\r\n@LIST.PML\r\ne@x, Fi Foe <f@x>\r\n"
                        "\\TITLE Again\r\n\"Al\" <A1>\r\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:Cox, C\nN:Cox;C;;;\nEMAIL:c@x\n"
              "person\nEMAIL:d@x\n"
              "person\nEMAIL:e@x\n"
              "person\nFN:Fi Foe\nN:Foe;Fi;;;\nEMAIL:f@x\n"
              "person\nFN:Al\nN:;Al;;;\nEMAIL:A1\n"
              "list\nFN:Rowers\nX-ORVIK-PML-NOSIG:Y\nX-ORVIK-PML-TITLE:Again\n"
              "MEMBER;VALUE=text:Ada Abbott\nMEMBER;VALUE=text:Berg\\, Ben\n"
              "MEMBER:x-orvik-line:7\nMEMBER:x-orvik-line:8\nMEMBER;VALUE=text:@LIST.PML\n"
              "MEMBER:mailto:e@x\nMEMBER:cn=Fi Foe,mail=f@x\nMEMBER:x-orvik-line:12\n");
    EXPECT_EQ(read.book.Contacts.back().From.Line, 1U);
    EXPECT_EQ(read.book.Contacts.back().From.Lines, 12U);
}

TEST(ReadPegasusList, CountsLettersWhereTheyStand) {
    const ReadBook read(ReadPegasusList,
                        "\\TITLE T\n\"J\xC3\xB6rg\" <a@x>\n\"Zo\xEB B\xF6nder\" <b@x>\n");
    EXPECT_EQ(read.sentence,
              "UTF-8 (1 record), windows-1252 (assumed; e.g. \"\"Zo\xC3\xAB B\xC3\xB6nder\" "
              "<b@x>\") (1 record, line 3)");
}

TEST(ReadPegasusList, IsCalledAsItsFileWithoutATitle) {
    EXPECT_EQ(Shown(ReadBook(ReadPegasusList, "\\NOSIG\nJ\xF6rg\n").book),
              "list\nFN:file\nX-ORVIK-PML-NOSIG:\nMEMBER;VALUE=text:J\xC3\xB6rg\n");
    EXPECT_EQ(Shown(ReadBook(ReadPegasusList, "a@x\n").book),
              "person\nEMAIL:a@x\nlist\nFN:file\nMEMBER:x-orvik-line:1\n");
    EXPECT_EQ(Shown(ReadBook(ReadPegasusList, "").book), "");
}

TEST(ReadPegasusText, ReadsBothForms) {
    const ReadBook read(ReadPegasusText,
                        "old\r\nName:            Ada Abbott\r\nOf:              Club; Ely\r\n"
                        "Key:             A,D\r\nStreet address:  1 Road, Ely\r\n"
                        "Postal address:  \r\nE-mail address:  a@x, b@y\r\n"
                        "Phone number:    1\r\nFax number:      2\r\nNotes:           a: b\r\n"
                        "Picture:         A.BMP\r\nBoat no.:        7\r\nno label\r\n-- \r\n\r\n"
                        "Name: Berg, Ben\r\nDept: Sales\r\nKey: BEN\r\nEmail: Ben <b@x>\r\n"
                        "Postal: Box 9\r\nStreet: Lane\r\nPhone: 3\r\nFax: 4\r\nNotes: n\r\n"
                        "Name: Cy\r\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:Ada Abbott\nN:Abbott;Ada;;;\nORG:Club\\; Ely\nNICKNAME:A\\,D\n"
              "ADR;TYPE=work:;;1 Road\\, Ely;;;;\nEMAIL:a@x\nEMAIL:b@y\nTEL;TYPE=voice:1\n"
              "TEL;TYPE=fax:2\nNOTE:a: b\nX-ORVIK-PEGASUS-Picture:A.BMP\n"
              "X-ORVIK-PEGASUS-Boat-no;X-ORVIK-HEADER=Boat no.:7\n"
              "X-ORVIK-PEGASUS-no-field:no label\n"
              "person\nFN:Berg, Ben\nN:Berg;Ben;;;\nORG:Sales\nNICKNAME:BEN\n"
              "EMAIL:Ben <b@x>\nADR;TYPE=postal:;;Box 9;;;;\nADR;TYPE=work:;;Lane;;;;\n"
              "TEL;TYPE=voice:3\nTEL;TYPE=fax:4\nNOTE:n\n"
              "person\nFN:Cy\nN:;Cy;;;\n");
    EXPECT_EQ(Told(read.book),
              "skipped 1 : old: belongs to no record\n"
              "doubtful 2 N: Ada Abbott: was parted at a blank into given and family name, as all "
              "such names of the file\n"
              "doubtful 2 : no label: is no field\n");
}

TEST(ReadPegasusText, ReadsLettersOfDosWhenAsked) {
    const ReadBook read(ReadPegasusText, "Name: J\x94rg\r\nKey: J\r\n", "cp850");
    EXPECT_EQ(Shown(read.book), "person\nFN:J\xC3\xB6rg\nN:;J\xC3\xB6rg;;;\nNICKNAME:J\n");
}

// A book of one entry, as far as its layout is known.
std::string Binary(std::size_t more) {
    std::string bytes = "Friends"s + std::string(121, '\0');
    bytes += "\1\0Ada Abbott"s;
    bytes.resize(128 + 458 + more);
    return bytes;
}

TEST(PegasusBinary, IsKnownByItsLayoutOrItsName) {
    EXPECT_TRUE(IsPegasusBinary(Source("book", Binary(0))));
    EXPECT_FALSE(IsPegasusBinary(Source("book", Binary(1))));
    EXPECT_TRUE(IsPegasusBinary(Source("ADDR0001.PMR", Binary(1))));
    EXPECT_FALSE(IsPegasusBinary(Source("x.pmr", "Name: Ada\n")));
    EXPECT_FALSE(IsPegasusBinary(Source("book", std::string(128 + 458, '\0'))));
    EXPECT_FALSE(IsPegasusBinary(Source("book", "")));
}

}  // namespace
}  // namespace orvik::book
