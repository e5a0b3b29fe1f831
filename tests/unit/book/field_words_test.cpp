#include "book/field_words.h"

#include <map>

#include <gtest/gtest.h>

#include "book/read_csv.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

// "What: value" for each property of the first record.
std::string WordsIn(const ReadBook& read, std::size_t most = 1000) {
    const Contact& contact = read.book.Contacts.front();
    GroupLabels labels;
    labels.Fill(read.book, contact);
    std::string text;
    for (const Property& one : contact.Properties) {
        text += FieldWords(read.book, one, labels) + ": " + ShownValue(read.book, one, most) + "\n";
    }
    return text;
}

std::string WordsOfCard(const std::string& lines) {
    const ReadBook read(ReadVCard, "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n");
    return WordsIn(read);
}

TEST(FieldWordsTest, KindsOfPhones) {
    const std::map<std::string, std::string> rows = {
        {"TEL", "Phone"},
        {"TEL;TYPE=voice", "Phone"},
        {"TEL;TYPE=work", "Work phone"},
        {"TEL;TYPE=home,voice", "Home phone"},
        {"TEL;TYPE=cell", "Mobile phone"},
        {"TEL;TYPE=cell,work", "Mobile phone, work"},
        {"TEL;TYPE=home,fax", "Home fax"},
        {"TEL;TYPE=fax", "Fax"},
        {"TEL;TYPE=pager", "Pager"},
        {"TEL;TYPE=car", "Car phone"},
        {"TEL;TYPE=isdn", "Isdn"},
        {"TEL;TYPE=work,pref", "Work phone, preferred"},
        {"EMAIL", "E-mail"},
        {"EMAIL;TYPE=internet,work", "E-mail, work"},
        {"ADR;TYPE=home", "Address, home"},
        {"URL;TYPE=work", "Web page, work"},
    };
    for (const auto& [line, words] : rows) {
        EXPECT_EQ(WordsOfCard(line + ":x\r\n"), words + ": x\n") << line;
    }
}

TEST(FieldWordsTest, ValuesAsAPersonReadsThem) {
    EXPECT_EQ(WordsOfCard("FN:Al Berg\r\n"
                          "N:Berg;Al;;Dr.;\r\n"
                          "NICKNAME:al,berg\\, a\r\n"
                          "ADR;TYPE=home:;;Pier 5;Oslo;;0150;Norway\r\n"
                          "ORG:Club;Boats\r\n"
                          "TITLE:Master\r\n"
                          "CATEGORIES:Rowers,Choir\r\n"
                          "BDAY:1980-04-12\r\n"
                          "NOTE:one\\ntwo\r\n"
                          "UID:abc\r\n"
                          "REV:20200101T000000Z\r\n"
                          "X-OWN:1\r\n"
                          "item1.TEL:5\r\n"
                          "item1.X-ABLabel:Boat\r\n"),
              "Name: Al Berg\n"
              "Name in parts: Berg, Al, Dr.\n"
              "Nickname: al, berg, a\n"
              "Address, home: Pier 5, Oslo, 0150, Norway\n"
              "Organisation: Club, Boats\n"
              "Job title: Master\n"
              "Groups: Rowers, Choir\n"
              "Birthday: 1980-04-12\n"
              "Note: one\ntwo\n"
              "UID: abc\n"
              "Last changed: 20200101T000000Z\n"
              "X-OWN: 1\n"
              "Phone, Boat: 5\n"
              "Label: Boat\n");
}

TEST(FieldWordsTest, CarriedFieldsHaveTheirOwnNames) {
    const ReadBook ldif(ReadLdif, "dn: cn=Al\ncn: Al\nshoeSize: 9\n");
    EXPECT_NE(WordsIn(ldif).find("shoeSize: 9\n"), std::string::npos) << WordsIn(ldif);
    const std::string table = "Name,E-mail,Sch\xC3\xBCler Nr.\nAl,al@example.org,7\n";
    const auto read_csv = [](Book& book, std::uint32_t file, Charset& letters) {
        ReadCsv(book, file, letters, {});
    };
    const ReadBook csv(read_csv, table);
    EXPECT_NE(WordsIn(csv).find("Sch\xC3\xBCler Nr.: 7\n"), std::string::npos) << WordsIn(csv);
    EXPECT_EQ(WordsOfCard("X-ORVIK-VCARD-HOBBY:Boats\r\n"), "HOBBY: Boats\n");
    EXPECT_EQ(WordsOfCard("X-ORVIK-MERGED-FN:Al B\r\n"), "FN, before merging: Al B\n");
    EXPECT_EQ(WordsOfCard("X-ORVIK-:1\r\nX-ORVIK-ODD-:2\r\n"), "X-ORVIK-: 1\nX-ORVIK-ODD-: 2\n");
}

TEST(FieldWordsTest, BytesAreCountedAndLongValuesCut) {
    EXPECT_EQ(WordsOfCard("PHOTO;ENCODING=b:" + std::string(4000, 'A') + "\r\n"),
              "Picture: 3 000 bytes\n");
    EXPECT_EQ(WordsOfCard("PHOTO;VALUE=uri:https://example.org/a.png\r\n"),
              "Picture: https://example.org/a.png\n");
    const ReadBook read(ReadVCard, "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:J\xC3\xB6rg\r\nEND:VCARD\r\n");
    EXPECT_EQ(WordsIn(read, 2), "Name: J\xE2\x80\xA6\n");
    EXPECT_EQ(WordsIn(read, 4), "Name: J\xC3\xB6\xE2\x80\xA6\n");
    EXPECT_EQ(WordsIn(read, 5), "Name: J\xC3\xB6rg\n");
    EXPECT_EQ(WordsIn(read, 0), "Name: \xE2\x80\xA6\n");
}

}  // namespace
}  // namespace orvik::book
