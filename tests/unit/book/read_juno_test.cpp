#include "book/old/read_juno.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

std::string Read(const std::string& text) {
    return Shown(ReadBook(ReadJuno, text).book);
}

std::string ToldOf(const std::string& text) {
    return Told(ReadBook(ReadJuno, text).book);
}

TEST(ReadJuno, TakesAPerson) {
    const std::string text =
        "Type:Version\r\nVersion:AB 0.3.0\r\n\r\n"
        "Type:Entry\r\nEmail:ada@example.org\r\nAlias:ada, a\r\nName:Abbott, Ada\r\n"
        "Primary Phone:555 0100\r\nMobile Phone:555:0101\r\nBirth:13.4.1980\r\n"
        "Address:1 River Road\r\nAddress:Oxbridge; UK\r\nDeleted:0\r\nTime:1300446059\r\n"
        "Work Phone:555 0102\r\n";
    EXPECT_EQ(Read(text),
              "person\n"
              "EMAIL:ada@example.org\n"
              "NICKNAME:ada\\, a\n"
              "FN:Abbott, Ada\n"
              "N:Abbott;Ada;;;\n"
              "TEL;TYPE=home:555 0100\n"
              "TEL;TYPE=cell:555:0101\n"
              "BDAY:1980-04-13\n"
              "X-ORVIK-JUNO-Time:1300446059\n"
              "X-ORVIK-JUNO-Work-Phone;X-ORVIK-HEADER=Work Phone:555 0102\n"
              "ADR;TYPE=home:;;1 River Road,Oxbridge\\; UK;;;;\n");
    EXPECT_EQ(ToldOf(text), "");
    const ReadBook read(ReadJuno, text);
    EXPECT_EQ(read.book.Contacts.at(0).From.Line, 4U);
    EXPECT_EQ(read.book.Contacts.at(0).From.Lines, 12U);
    EXPECT_TRUE(read.book.BytesOf(read.book.Contacts.at(0)).starts_with("Type:Entry"));
}

TEST(ReadJuno, TakesWhatTheClassicProgramWrote) {
    EXPECT_EQ(Read("\r\n\r\nType:Entry\r\nName:Al\r\nEmail:A1\r\nAlias:Al\r\n\r\n"
                   "Type:Entry\r\nName:\r\nEmail:A2\r\nAlias:\r\n"),
              "person\nFN:Al\nN:;Al;;;\nEMAIL:A1\nNICKNAME:Al\nperson\nEMAIL:A2\n");
}

TEST(ReadJuno, ListsNameTheirMembersByAliasAddressOrName) {
    const std::string text =
        "Type:Entry\nName:Ada Abbott\nAlias:ben\nEmail:ada@example.org\n\n"
        "Type:Entry\nName:ben\nEmail:ben@example.org\nAlias:b\n\n"
        "Type:MList\nName:Rowers\nAlias:row\nMember:BEN\nMember:Ben@example.org\n"
        "Member:ada abbott\nMember:cy@example.org\nMember:Nobody, at all\nMember:coxes\n\n"
        "Type:MList\nName:Coxes\n";
    EXPECT_EQ(Read(text),
              "person\nFN:Ada Abbott\nN:Abbott;Ada;;;\nNICKNAME:ben\nEMAIL:ada@example.org\n"
              "person\nFN:ben\nN:;ben;;;\nEMAIL:ben@example.org\nNICKNAME:b\n"
              "list\nFN:Rowers\nNICKNAME:row\nMEMBER:x-orvik-line:1\nMEMBER:x-orvik-line:6\n"
              "MEMBER:x-orvik-line:1\nMEMBER:mailto:cy@example.org\n"
              "MEMBER;VALUE=text:Nobody\\, at all\nMEMBER:x-orvik-line:21\n"
              "list\nFN:Coxes\n");
}

TEST(ReadJuno, ForgivesWhatIsOdd) {
    const struct {
        std::string Text;
        std::string Expected;
        std::string Told;
    } rows[] = {
        {"type: entry\rname: Al \rEMAIL:  al@b\r", "person\nFN:Al\nN:;Al;;;\nEMAIL:al@b\n", ""},
        {"Type:Entry\nName:al@b\nEmail:Al\nAlias:al@b\n",
         "person\nEMAIL:al@b\nFN:Al\nN:;Al;;;\nNICKNAME:al@b\n",
         "doubtful 1 EMAIL: al@b: stood in the place of the name, as in all such entries of the "
         "file\n"},
        {"Email:al@b\nName:Al\n", "person\nEMAIL:al@b\nFN:Al\nN:;Al;;;\n", ""},
        {"Type:Entry\nName:Al\nType:Entry\nName:Bo\n",
         "person\nFN:Al\nN:;Al;;;\nperson\nFN:Bo\nN:;Bo;;;\n",
         ""},
        {"Type:Entry\nName:Al\nName:Bo\nEmail:a@b\nEmail:c@d\nMember:x\n",
         "person\nFN:Al\nN:;Al;;;\nX-ORVIK-JUNO-Name:Bo\nEMAIL:a@b\nEMAIL:c@d\n"
         "X-ORVIK-JUNO-Member:x\n",
         ""},
        {"Type:Friend\nName:Al\nDeleted:maybe\n",
         "person\nX-ORVIK-JUNO-Type:Friend\nFN:Al\nN:;Al;;;\nX-ORVIK-JUNO-Deleted:maybe\n",
         ""},
        {"Type:Entry\nName:Al\nBirth:in May\nBirth:3/4/1980\n",
         "person\nFN:Al\nN:;Al;;;\nBDAY;VALUE=text:in May\nBDAY;VALUE=text:3/4/1980\n",
         ""},
        {"Type:Entry\nName:Al\nwhat\n",
         "person\nFN:Al\nN:;Al;;;\nX-ORVIK-JUNO-no-field:what\n",
         "doubtful 1 : what: is no field\n"},
        {"Type:Entry\nName:Al\nDeleted:1\n\nDeleted:1\nType:MList\nMember:Al\n\n",
         "list\nMEMBER;VALUE=text:Al\n",
         "skipped 1 : Al: is marked as deleted\n"
         "skipped 5 : Deleted:1: belongs to no record\n"},
        {"Type:Settings\nx:1\n", "", "skipped 1 : Type:Settings: belongs to no record\n"},
        {"Type:Entry\n", "person\n", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Read(row.Text), row.Expected) << row.Text;
        EXPECT_EQ(ToldOf(row.Text), row.Told) << row.Text;
    }
}

TEST(ReadJuno, LettersAreThoseOfTheFile) {
    const ReadBook read(ReadJuno,
                        "Type:Entry\nName:M\xFCller, J\xF6rg\nStra\xDF"
                        "e:gr\xFCn\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:M\xC3\xBCller, J\xC3\xB6rg\nN:M\xC3\xBCller;J\xC3\xB6rg;;;\n"
              "X-ORVIK-JUNO-Stra-e;X-ORVIK-HEADER=Stra\xC3\x9F"
              "e:gr\xC3\xBCn\n");
    EXPECT_NE(read.sentence.find("\"M\xC3\xBCller, J\xC3\xB6rg\""), std::string::npos)
        << read.sentence;
}

}  // namespace
}  // namespace orvik::book
