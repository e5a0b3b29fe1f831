// Which book of an old mail program a text is, and which texts are none.

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "book/detect.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;

Detected DetectedAs(const std::string& name, const std::string& text) {
    return Detect(Source(name, text));
}

std::string Repeated(const std::string& line, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += line;
    }
    return text;
}

TEST(DetectTextBooks, KnowsEachByItsContent) {
    const struct {
        std::string Text;
        Format Expected;
        const char* Evidence;
    } rows[] = {
        {"\\TITLE Team\r\nAda\r\n", Format::PegasusList, "line 1 is a setting of a list"},
        {"Ada Abbott\n\\NOSIG\n", Format::PegasusList, "line 2 is a setting of a list"},
        {"Name:            Ada\r\nOf:              \r\nE-mail address:  a@x\r\n-- \r\n",
         Format::PegasusText,
         "line 1 begins an entry"},
        {"\n\nName: Ada\nKey: A\nEmail: a@x\n", Format::PegasusText, "line 3 begins an entry"},
        {"Name: A\n\nName: B\nKey: B\nEmail: b@x\n\n",
         Format::PegasusText,
         "line 3 begins an entry"},
        {"alias ada a@x\nnote ada <name:Ada>\n", Format::Eudora, "line 1 begins an alias"},
        {"note ada <name:Ada>\n", Format::Eudora, "line 1 begins an alias"},
        {"alias \"ada a\" a@x\n", Format::Eudora, "line 1 begins an alias"},
        {"alias \"\" a@x\nalias \"\" b@x\n", Format::Eudora, "line 1 begins an alias"},
        {"Alias ada a@x\n", Format::Eudora, "line 1 begins an alias"},
        {"alias ada a@x\r\n", Format::Eudora, "line 1 begins an alias"},
        {"alias ada a@x\ralias b b@x\r", Format::Eudora, "line 1 begins an alias"},
        {"\n<ada>\n>a@x\n", Format::Eudora, "line 2 begins a nickname"},
        {"alias ada a@x\n", Format::Mailrc, "line 1 begins an alias"},
        {"set a\nalias ada a@x\nretain b\n", Format::Mailrc, "line 2 begins an alias"},
        {"# x\r\ngroup a b@x c@x\r\n", Format::Mailrc, "line 2 begins an alias"},
        {"alias a b@x c@x\n", Format::Mailrc, "line 1 begins an alias"},
        {"alias ada Ada <a@x>\n", Format::Mutt, "line 1 begins an alias"},
        {"alias a b@x, c@x\n", Format::Mutt, "line 1 begins an alias"},
        {"alias a \\\"A\\\" <a@x>\r\n", Format::Mutt, "line 1 begins an alias"},
        {"color x\nmacro y\nbind z\nalias ada a@x\n", Format::Mutt, "line 4 begins an alias"},
        {"alias -group g ada a@x\n", Format::Mutt, "line 1 begins an alias"},
        {"ada\tAbbott, Ada\ta@x\n", Format::Pine, "line 1 begins an entry"},
        {"ada\tAda Abbott\ta@x\nben\tBen Berg\tb@x\t\tx\n", Format::Pine, "line 1 begins an entry"},
        {"a\t\t(a@x,\n   b@x)\n", Format::Pine, "line 1 begins an entry"},
        {"\n#DELETED-98/1/1#a\tA\ta@x\nb\tB\tb@x\n", Format::Pine, "line 3 begins an entry"},
        {"# abook addressbook file\n", Format::Abook, "line 1 names abook"},
        {"# ours\n\n[format]\nprogram=abook\n", Format::Abook, "line 4 names abook"},
    };
    for (const auto& row : rows) {
        const Detected found = DetectedAs("file", row.Text);
        EXPECT_EQ(found.Form, row.Expected) << row.Text;
        EXPECT_EQ(found.Evidence, row.Evidence) << row.Text;
    }
}

TEST(DetectTextBooks, TakesNothingElseForABook) {
    const std::array<std::string, 27> texts = {
        "#!/bin/sh\nalias ada a@x\n",
        "alias ll='ls -l'\nalias mail='mutt a@x'\n",
        "alias ll ls -l\nalias rm rm -i\n",
        "alias m mail a@x | more\nalias n $(x) b@x\nset x\n",
        "export A=b\nalias ada a@x\n",
        "if [ -f x ]; then\nalias ada a@x\nfi\n",
        "set a\nset b\n",
        "Dear Ada,\nplease use the\nalias ada a@x\nand write soon\nBen\n",
        "Note that Ada has moved: <http://x>\nto a@x\nand writes less\n",
        "note: this\n",
        "From: Ada <a@x>\nTo: b@x\nSubject: alias\n\nalias\tx\n",
        "<html>\n<p>alias\n",
        "<ada>\n<b>\n",
        "<ada>\n",
        "\\documentclass{article}\n\\TITLE x\n",
        "\\TITLE{x}\n",
        "\\begin{x}\n",
        "Name: x\nVersion: 1\nSummary: y\n",
        "Name: Ada\nEmail: a@x\nPhone: 5\n",
        "name: ada\nkey: x\nemail: a@x\n",
        "Key: x\nEmail: a@x\nDept: y\n",
        "Name\tMail\nAda Abbott\ta b\n",
        "all:\tprog, x\tlib\n\tcc -o x\n",
        "1\t2\t3\n4\t5\t6\n",
        "[format]\nprogram=other\n",
        "[0]\nname=Ada\nemail=a@x\n",
        "int main() {\n\treturn\t0;\n}\n",
    };
    for (const std::string& text : texts) {
        const Detected found = DetectedAs("file", text);
        EXPECT_EQ(found.Form, Format::None) << text << found.Evidence;
    }
}

TEST(DetectTextBooks, LeavesTablesAndCardsAlone) {
    EXPECT_EQ(DetectedAs("x", "Nickname\tName\tE-mail\nada\tAbbott, Ada\ta@x.org\n").Form,
              Format::Csv);
    EXPECT_EQ(DetectedAs("x", "1\tAda Abbott\ta@x.org\n2\tBen Berg\tb@x.org\n").Form, Format::Csv);
    EXPECT_EQ(DetectedAs("x", "Ada\tAbbott\ta@x.org\nBen\tBerg\tb@x.org\n").Form, Format::Csv);
    EXPECT_EQ(DetectedAs("x.pml", "BEGIN:VCARD\nEND:VCARD\n").Form, Format::VCard);
    EXPECT_EQ(DetectedAs(".mailrc", "dn: cn=Al\ncn: Al\nalias a a@x\n").Form, Format::Ldif);
}

TEST(DetectTextBooks, LetsTheNameDecideWhatIsOpen) {
    const std::string open = "alias ada a@x\n";
    EXPECT_EQ(DetectedAs("/home/a/.mailrc", open + "\r\n").Form, Format::Mailrc);
    EXPECT_EQ(DetectedAs("/home/a/.mutt/aliases", open).Form, Format::Mutt);
    EXPECT_EQ(DetectedAs("C:\\EUDORA\\NNDBASE.TXT", open).Form, Format::Eudora);
    EXPECT_EQ(DetectedAs("/mutt/x", open).Form, Format::Mailrc);
    // What the lines say counts more.
    EXPECT_EQ(DetectedAs(".mailrc", "alias -group g ada a@x\n").Form, Format::Mutt);
    EXPECT_EQ(DetectedAs(".muttrc", "group x a@x b@x\n").Form, Format::Mailrc);
    EXPECT_EQ(DetectedAs("x.PML", "Ada Abbott\nBen Berg\n").Form, Format::PegasusList);
    EXPECT_EQ(DetectedAs("x.PML", "int main() {\n}\n").Form, Format::None);
    EXPECT_EQ(DetectedAs("x.txt", "Ada Abbott\nBen Berg\n").Form, Format::None);
    EXPECT_EQ(DetectedAs(".addressbook", "lu\tLu\tlu\n").Form, Format::None);
    EXPECT_EQ(DetectedAs(".addressbook", "lu\tLu\tlu\nada\tAda\ta@x\n").Form, Format::Pine);
}

// One odd line costs no book.
TEST(DetectTextBooks, ForgivesOddLines) {
    const struct {
        const char* Name;
        std::string Text;
        Format Expected;
    } rows[] = {
        {".addressbook", "ben o\tBen\tb@x.org\nada\tAda\ta@x.org\n", Format::Pine},
        {".addressbook", "\"q\tBen\tb@x.org\n", Format::Pine},
        {"C:\\PINE\\ADDRBOOK", "lu\tLu\nada\tAda\ta@x.org\njunk\n", Format::Pine},
        {".addressbook", "junk\nmore\nada\tAda\ta@x.org\n", Format::None},
        {"x", "lu\tLu\nrow\tCrew\t(ada,\n   b@x)\nada\tAda\ta@x\n", Format::Pine},
        {"x", "lu\tLu\nrow\tCrew\t(ada,\n   b@x)\n", Format::None},
        {"x", "\"q\tA\ta@x\nb\tBen Berg\t\n   b@x\nc\tCoe\tc@x\n", Format::Pine},
        {"x", "lu\tLu\n" + Repeated("ada\tAda Abbott\ta@x\n", 10), Format::Pine},
        {"x", "lu\tLu\n" + Repeated("ada\tAda Abbott\ta@x\n", 9), Format::None},
        {"x", "Mary Ann\tBerg\tm@x.org\n" + Repeated("Ada\tAbbott\ta@x.org\n", 20), Format::Csv},
        {"NNdbase.txt", "junk\nalias ada a@x\nmore junk\nnote ada Rows\n", Format::Eudora},
        {"book.nnt", "junk\nmore\nalso\nalias ada a@x\n", Format::Eudora},
        {"RCPdbase.txt", "junk\nmore\nalias ll ls\n", Format::None},
        {"NNdbase.txt", "#!/bin/sh\nalias ada a@x\n", Format::None},
        {"letter.txt", "junk\nalias ada a@x\nmore junk\nnote ada Rows\n", Format::None},
        {"letter.txt", "junk\nalias ada a@x\nnote ada <name:Ada>\n", Format::Eudora},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(DetectedAs(row.Name, row.Text).Form, row.Expected) << row.Name << row.Text;
    }
}

TEST(DetectTextBooks, SaysWhatToDoAboutBinaryBooks) {
    std::string bytes = "Friends"s + std::string(121, '\0') + "\1\0Ada Abbott"s;
    bytes.resize(128 + 458);
    const Detected found = DetectedAs("ADDR0001.PMR", bytes);
    EXPECT_EQ(found.Form, Format::None);
    EXPECT_EQ(found.Evidence, "a binary book of Pegasus Mail");
    EXPECT_EQ(found.Advice, "Pegasus Mail exports it as tagged text");
}

TEST(DetectTextBooks, QuotesWithoutEndAreGoneThroughOnce) {
    EXPECT_EQ(DetectedAs("file", "alias b " + std::string(400001, '"') + "b@x\n").Form,
              Format::Mailrc);
}

}  // namespace
}  // namespace orvik::book
