#include "book/write_vcard.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "book/identity.h"
#include "book/write_ldif.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

std::string Card(std::string_view version, const std::string& lines) {
    return "BEGIN:VCARD\r\nVERSION:" + std::string(version) + "\r\n" + lines + "END:VCARD\r\n";
}

std::string Written(const std::string& bytes,
                    Dialect version,
                    ReadBook::Reader reader = ReadVCard) {
    ReadBook read(reader, bytes);
    return WriteVCard(read.book, version);
}

TEST(WriteVCard, KeepsAFileThatNobodyChangedByteForByte) {
    const std::string text =
        "\xEF\xBB\xBFjunk\nBEGIN:VCARD\nVERSION:3.0\nfn:Al\nEND:VCARD\n\n"
        "BEGIN:vcard\r\nVERSION:3.0\r\nFN:B\r\n o\r\nEND:VCARD";
    EXPECT_EQ(Written(text, Dialect::VCard30), text);
    EXPECT_NE(Written(text, Dialect::VCard40), text);
}

TEST(WriteVCard, KeepsACardThatNobodyChangedByteForByte) {
    const std::string al = "BEGIN:VCARD\nVERSION:3.0\nfn:Al\nEND:VCARD\n";
    ReadBook read(ReadVCard, al + Card("3.0", "UID:2\r\nN:Bo;;;;\r\nFN:Bo\r\nNICKNAME:b\r\n"));
    read.book.SetValue(read.book.Contacts[1], 3, "bb");
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard30),
              al + Card("3.0", "UID:2\r\nN:Bo;;;;\r\nFN:Bo\r\nNICKNAME:bb\r\n"));
}

TEST(WriteVCard, WritesAnewWhatCannotStay) {
    // Not of this version, not in UTF-8, not ended.
    EXPECT_EQ(Written(Card("2.1", "UID:1\r\nN:Al;;;;\r\nFN:A,l\r\nTEL;HOME;PREF:1\r\n"),
                      Dialect::VCard30),
              Card("3.0", "UID:1\r\nN:Al;;;;\r\nFN:A\\,l\r\nTEL;TYPE=HOME;TYPE=PREF:1\r\n"));
    EXPECT_EQ(Written(Card("3.0", "UID:1\r\nN:J\xF6;;;;\r\nFN:J\xF6\r\n"), Dialect::VCard30),
              Card("3.0", "UID:1\r\nN:J\xC3\xB6;;;;\r\nFN:J\xC3\xB6\r\n"));
    EXPECT_EQ(
        Written(
            "BEGIN:VCARD\nVERSION:3.0\nUID:1\nN:;;;;\nFN:Al\n" + Card("4.0", "UID:2\r\nFN:Bo\r\n"),
            Dialect::VCard30),
        Card("3.0", "UID:1\r\nN:;;;;\r\nFN:Al\r\n") + Card("3.0", "UID:2\r\nN:;;;;\r\nFN:Bo\r\n"));
}

TEST(WriteVCard, WritesAnewWhatIsInAnotherSetAlthoughItsBytesCouldBeUtf8) {
    const std::string card = Card("3.0", "UID:1\r\nN:\xC3\xBC;;;;\r\nFN:\xC3\xBC\r\n");
    ReadBook asked(ReadVCard, card, "windows-1252");
    EXPECT_EQ(WriteVCard(asked.book, Dialect::VCard30),
              Card("3.0", "UID:1\r\nN:\xC3\x83\xC2\xBC;;;;\r\nFN:\xC3\x83\xC2\xBC\r\n"));
    ReadBook same(ReadVCard, card, "utf-8");
    EXPECT_EQ(WriteVCard(same.book, Dialect::VCard30), card);
    // Letters between escapes, and in quoted-printable that names no set.
    EXPECT_EQ(Written(Card("3.0", "UID:1\r\nN:;;;;\r\nFN:\x1B$B;3\x1B(B\r\n"), Dialect::VCard30),
              Card("3.0", "UID:1\r\nN:;;;;\r\nFN:\xE5\xB1\xB1\r\n"));
    EXPECT_EQ(Written(Card("3.0", "UID:1\r\nN:;;;;\r\nFN;ENCODING=QUOTED-PRINTABLE:J=F6=FC\r\n"),
                      Dialect::VCard30),
              Card("3.0", "UID:1\r\nN:;;;;\r\nFN:J\xC3\xB6\xC3\xBC\r\n"));
    ReadBook record(ReadLdif, "dn: cn=A\ncn: A\nx: \xC3\xBC\n", "windows-1252");
    const std::string shown = Shown(record.book);
    ReadBook again(ReadLdif, WriteLdif(record.book, std::nullopt));
    EXPECT_EQ(Shown(again.book), shown);
}

TEST(WriteVCard, TellsWhatBytesAreAndWhoseTheyAre) {
    const std::string newer = Written(Card("3.0",
                                           "UID:1\r\nN:;;;;\r\nFN:a\r\n"
                                           "KEY;ENCODING=b;TYPE=WORK;TYPE=PGP:AAAA\r\n"
                                           "PHOTO;TYPE=pref;ENCODING=b:iVBORw0KGgo=\r\n"
                                           "LOGO;ENCODING=b:R0lGODlh\r\nSOUND;ENCODING=b:AAAA\r\n"
                                           "PHOTO;ENCODING=b;TYPE=image/X:/9j/\r\n"),
                                      Dialect::VCard40);
    EXPECT_EQ(newer,
              Card("4.0",
                   "UID:1\r\nN:;;;;\r\nFN:a\r\nKEY;TYPE=WORK:data:application/pgp;base64,AAAA\r\n"
                   "PHOTO;PREF=1:data:image/png;base64,iVBORw0KGgo=\r\n"
                   "LOGO:data:image/gif;base64,R0lGODlh\r\n"
                   "SOUND:data:audio/octet-stream;base64,AAAA\r\n"
                   "PHOTO:data:image/x;base64,/9j/\r\n"));
    const std::string older = Written(newer, Dialect::VCard30);
    EXPECT_NE(older.find("\r\nSOUND;ENCODING=b:AAAA\r\n"), std::string::npos) << older;
    EXPECT_EQ(Written(older, Dialect::VCard40), newer);
    const std::string other =
        Card("4.0", "UID:1\r\nN:;;;;\r\nFN:a\r\nKEY:data:text/plain;base64,AAAA\r\n");
    EXPECT_EQ(Written(Written(other, Dialect::VCard30), Dialect::VCard40), other);
}

TEST(WriteVCard, MakesUpWhatEachCardHas) {
    const std::string card = Written("dn: mail=a@b\nmail: a@b\n", Dialect::VCard30, ReadLdif);
    EXPECT_EQ(card.substr(card.find("N:;")), "N:;;;;\r\nFN:a@b\r\nEMAIL:a@b\r\nEND:VCARD\r\n");
    EXPECT_EQ(card.find("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:"), 0U);
    // The same once more, and from the card itself.
    EXPECT_EQ(Written("dn: mail=a@b\nmail: a@b\n", Dialect::VCard30, ReadLdif), card);
    EXPECT_EQ(Written(card, Dialect::VCard30), card);
    const std::string newer = Written("dn: mail=a@b\nmail: a@b\n", Dialect::VCard40, ReadLdif);
    EXPECT_EQ(newer.find("BEGIN:VCARD\r\nVERSION:4.0\r\nUID:urn:uuid:"), 0U);
}

TEST(WriteVCard, WritesEachValueInItsForm) {
    const std::string lines =
        "UID:1\r\nN:A\\;b,c;;;;\r\nFN:a\\\\b\\nc\\, d\\; e: f\r\n"
        "NICKNAME:a\\,b,c\r\nURL:http\\://a,b;c\r\nX-Own:a\\,b,c\r\n"
        "item1.EMAIL;X-A=\"b;c\":a@b\r\nitem1.X-ABLabel:x\r\n"
        "TEL;VALUE=uri:tel:+1;ext=5\r\n";
    EXPECT_EQ(Written(Card("4.0", lines), Dialect::VCard30), Card("3.0", lines));
}

TEST(WriteVCard, FoldsLinesBetweenLetters) {
    std::string note;
    for (int i = 0; i < 60; ++i) {
        note += "\xE2\x82\xAC";
    }
    const std::string card =
        Written(Card("4.0", "UID:1\r\nFN:a\r\nNOTE:" + note + "\r\n"), Dialect::VCard30);
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = card.find("\r\n", begin)) != std::string::npos;
         begin = end + 2) {
        EXPECT_LE(end - begin, 75U);
        EXPECT_NE(static_cast<unsigned char>(card[begin + 1]) & 0xC0U, 0x80U);
    }
    EXPECT_EQ(begin, card.size());
    const ReadBook back(ReadVCard, card);
    EXPECT_NE(Shown(back.book).find("NOTE:" + note + "\n"), std::string::npos);
}

TEST(WriteVCard, CarriesWhatAVersionDoesNotHaveAndBringsItBack) {
    const std::string old = Card("3.0",
                                 "UID:1\r\nN:;;;;\r\nFN:a\r\nLABEL;TYPE=HOME:1 Road\\nTown\\, x"
                                 "\r\nMAILER:m\r\nX-ANNIVERSARY:2001-02-03\r\n"
                                 "BDAY:1980-04-12\r\nREV:2001-04-09T21:08:16Z\r\n"
                                 "PHOTO;ENCODING=b;TYPE=jpeg:/9j/\r\n");
    ReadBook read(ReadVCard, old);
    const std::string newer = WriteVCard(read.book, Dialect::VCard40);
    EXPECT_EQ(newer,
              Card("4.0",
                   "UID:1\r\nN:;;;;\r\nFN:a\r\n"
                   "X-ORVIK-VCARD-LABEL;TYPE=HOME:1 Road\\nTown\\, x\r\n"
                   "X-ORVIK-VCARD-MAILER:m\r\nANNIVERSARY:20010203\r\n"
                   "BDAY:19800412\r\nREV:20010409T210816Z\r\n"
                   "PHOTO:data:image/jpeg;base64,/9j/\r\n"));
    EXPECT_EQ(Told(read.book),
              "carried 1 LABEL: 1 Road\\x0ATown, x: has no place in the target\n"
              "carried 1 MAILER: m: has no place in the target\n");
    const std::string back = Written(newer, Dialect::VCard30);
    EXPECT_EQ(back,
              Card("3.0",
                   "UID:1\r\nN:;;;;\r\nFN:a\r\nLABEL;TYPE=HOME:1 Road\\nTown\\, x\r\n"
                   "MAILER:m\r\nX-ANNIVERSARY:20010203\r\nBDAY:19800412\r\n"
                   "REV:20010409T210816Z\r\nPHOTO;ENCODING=b;TYPE=jpeg:/9j/\r\n"));
    EXPECT_EQ(Written(Card("4.0",
                           "UID:1\r\nFN:a\r\nGENDER:M;x\\,y\r\nEMAIL;PREF=1:a\r\n"
                           "TEL;PREF=2:1\r\nKIND:org\r\n"),
                      Dialect::VCard30),
              Card("3.0",
                   "UID:1\r\nN:;;;;\r\nFN:a\r\nX-ORVIK-VCARD-GENDER:M;x\\,y\r\n"
                   "EMAIL;TYPE=PREF:a\r\nTEL;PREF=2:1\r\nX-ORVIK-VCARD-KIND:org\r\n"));
}

TEST(WriteVCard, NamesMembersByUidAndThenByAddress) {
    const std::string ldif =
        "dn: cn=Ada,mail=a@b\ncn: Ada\nmail: a@b\nuid: A-1\n\n"
        "dn: cn=Team\nobjectclass: groupOfNames\ncn: Team\nuid: T\n"
        "member: cn=Ada,mail=a@b\nmember: cn=Bo,mail=bo@x\nmember: cn=Cy\n";
    ReadBook read(ReadLdif, ldif);
    const std::string cards = WriteVCard(read.book, Dialect::VCard40);
    EXPECT_EQ(cards.substr(cards.rfind("BEGIN")),
              Card("4.0",
                   "UID:T\r\nFN:Team\r\nKIND:group\r\nMEMBER:A-1\r\n"
                   "MEMBER;X-ORVIK-DN=\"cn=Bo,mail=bo@x\":mailto:bo@x\r\nMEMBER:cn=Cy\r\n"));
    EXPECT_EQ(Told(read.book),
              "skipped 6 MEMBER: cn=Bo,mail=bo@x: is not in these files\n"
              "skipped 6 MEMBER: cn=Cy: is not in these files\n");
    const std::string group = Card("4.0", "UID:1\r\nFN:a\r\nKIND:group\r\nitem1.MEMBER:x\r\n");
    EXPECT_NE(Written(group, Dialect::VCard30).find("item1.X-ADDRESSBOOKSERVER-MEMBER:x\r\n"),
              std::string::npos);
    ReadBook again(ReadLdif, ldif);
    EXPECT_NE(WriteVCard(again.book, Dialect::VCard30)
                  .find("X-ADDRESSBOOKSERVER-KIND:group\r\nX-ADDRESSBOOKSERVER-MEMBER:A-1\r\n"),
              std::string::npos);
}

TEST(WriteVCard, TellsOfSignsThatAParameterCannotHold) {
    const std::string newer = Card("4.0", "UID:1\r\nFN:a\r\nADR;LABEL=^'1^'^n2:;;1;;;;\r\n");
    ReadBook read(ReadVCard, newer);
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard30),
              Card("3.0", "UID:1\r\nN:;;;;\r\nFN:a\r\nADR;LABEL=\"'1' 2\":;;1;;;;\r\n"));
    EXPECT_EQ(Told(read.book), "doubtful 1 ADR: ;;1;;;;: has signs that the target cannot hold\n");
    ReadBook touched(ReadVCard, newer);
    touched.book.Contacts[0].Changed = true;
    EXPECT_EQ(WriteVCard(touched.book, Dialect::VCard40), newer);
}

TEST(WriteVCard, CarriesFieldsOfLdif) {
    ReadBook read(ReadLdif,
                  "dn: cn=A\ncn: A\nuid: 1\nshoeSize: 4, 5\nother:: AAEC\n"
                  "photo:< file:///x\n");
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard30),
              Card("3.0",
                   "UID:1\r\nN:;;;;\r\nFN:A\r\nX-ORVIK-LDIF-shoeSize:4\\, 5\r\n"
                   "X-ORVIK-LDIF-other;ENCODING=b:AAEC\r\n"
                   "X-ORVIK-LDIF-photo;VALUE=uri:file:///x\r\n"));
    EXPECT_EQ(read.book.Told.Count(What::Carried), 3U);
    EXPECT_EQ(read.book.Told.Count(What::Lost), 0U);
}

TEST(WriteVCard, TellsWhereCardsStand) {
    const std::string al = "BEGIN:VCARD\nVERSION:3.0\nfn:Al\nEND:VCARD\n";
    const std::string bo = Card("3.0", "UID:2\r\nN:Bo;;;;\r\nFN:Bo\r\n");
    ReadBook read(ReadVCard, "junk\n" + al + "\n" + bo);
    RecordPlaces places;
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard30, &places), al + bo);
    EXPECT_EQ(places, (RecordPlaces{0, al.size(), al.size() + bo.size()}));
    ReadBook none(ReadVCard, "");
    EXPECT_EQ(WriteVCard(none.book, Dialect::VCard30, &(places = {})), "");
    EXPECT_EQ(places, RecordPlaces{0});
}

TEST(WriteVCard, MovesGroupsIntoParametersAndBack) {
    const std::string plain = Card("4.0",
                                   "UID:1\r\nFN:a\r\nitem1.EMAIL;TYPE=home:a@b\r\nitem1.X-ABLabel:"
                                   "Boat\r\nb.TEL:5\r\na.b.c:1\r\n");
    const std::string moved = Card("4.0",
                                   "UID:1\r\nFN:a\r\nEMAIL;X-ORVIK-GROUP=item1;TYPE=home:a@b\r\n"
                                   "item1.X-ABLabel:Boat\r\nTEL;X-ORVIK-GROUP=b:5\r\na.b.c:1\r\n");
    ReadBook read(ReadVCard, plain);
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard40, nullptr, GroupForm::Param), moved);
    EXPECT_EQ(read.book.Told.Count(What::Lost) + read.book.Told.Count(What::Carried), 0U);
    ReadBook again(ReadVCard, moved);
    again.book.Contacts[0].Changed = true;
    EXPECT_EQ(WriteVCard(again.book, Dialect::VCard40), plain);
    ReadBook without(ReadVCard, "BEGIN:VCARD\nVERSION:4.0\nFN:a\nEND:VCARD");
    EXPECT_EQ(WriteVCard(without.book, Dialect::VCard40, nullptr, GroupForm::Param),
              "BEGIN:VCARD\nVERSION:4.0\nFN:a\nEND:VCARD");
}

TEST(WriteVCard, GivesAUidToWhomAListNames) {
    const std::string al = "BEGIN:VCARD\nVERSION:3.0\nFN:Al\nEND:VCARD\n";
    const std::string bo = "BEGIN:VCARD\nVERSION:3.0\nFN:Bo\nEMAIL:b@example.org\nEND:VCARD\n";
    const std::string crew =
        Card("4.0", "UID:9\r\nFN:Crew\r\nKIND:group\r\nMEMBER:mailto:b@example.org\r\n");
    ReadBook read(ReadVCard, al + bo + crew);
    const std::string uid = Identities(read.book).UidAt(1);
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard30),
              al + Card("3.0", "UID:" + uid + "\r\nN:;;;;\r\nFN:Bo\r\nEMAIL:b@example.org\r\n") +
                  Card("3.0",
                       "UID:9\r\nN:;;;;\r\nFN:Crew\r\nX-ADDRESSBOOKSERVER-KIND:group\r\n"
                       "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:" +
                           uid + "\r\n"));
}

TEST(WriteVCard, DoesNotMissMembersWhoWereLeftOut) {
    ReadBook read(ReadVCard,
                  Card("4.0", "FN:a\r\nKIND:group\r\nMEMBER:urn:uuid:1\r\nMEMBER:urn:uuid:2\r\n"));
    read.book.LeaveOut(read.book.Contacts[0].Properties[2]);
    static_cast<void>(WriteVCard(read.book, Dialect::VCard30));
    EXPECT_EQ(Told(read.book), "skipped 1 MEMBER: urn:uuid:2: is not in these files\n");
}

}  // namespace
}  // namespace orvik::book
