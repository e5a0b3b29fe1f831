// What LDIF holds comes back from a vCard.

#include <string>

#include <gtest/gtest.h>

#include "book/write_ldif.h"
#include "book/write_vcard.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;
using test::ReadBook;

std::string ToCard(const std::string& ldif, Dialect version = Dialect::VCard30) {
    ReadBook read(ReadLdif, ldif);
    return WriteVCard(read.book, version);
}

std::string ToLdif(const std::string& card) {
    ReadBook read(ReadVCard, card);
    return WriteLdif(read.book, LdifAttributes::Mozilla);
}

// The lines of a record behind its UID, which are the attributes that it came with.
std::string Back(const std::string& lines, Dialect version = Dialect::VCard30) {
    const std::string text =
        ToLdif(ToCard("dn: cn=Al\nobjectclass: person\ncn: Al\nuid: 1\n" + lines, version));
    const std::string uid = "uid: 1\n";
    return text.substr(text.find(uid) + uid.size());
}

TEST(RoundTrip, BytesStayThoseBytes) {
    for (const std::string line : {"objectGUID:: 3q2+74GQ\n",
                                   "userCertificate:: MIL//p0=\n",
                                   "audio:: /4E=\n",
                                   "x-text:: SsO2cmc=\n"}) {
        EXPECT_EQ(Back(line), line);
    }
    ReadBook read(ReadLdif, "dn: cn=Al\ncn: Al\nobjectGUID:: 3q2+74GQ\n");
    EXPECT_EQ(read.sentence, "ASCII");
    ReadBook text(ReadLdif, "dn: cn=Al\ncn:: SvZyZw==\n");
    EXPECT_EQ(text.sentence, "windows-1252 (assumed; e.g. \"J\xC3\xB6rg\")");
}

TEST(RoundTrip, ValuesKeepTheirOrder) {
    EXPECT_EQ(Back("ou: A\nou: B\nou: C\n"), "ou: A\nou: B\nou: C\n");
    EXPECT_EQ(Back("o: A\no: B\nl: C\nl: D\n"), "o: A\nl: C\no: B\nl: D\n");
    EXPECT_EQ(Back("mozillaHomeStreet: A\nmozillaHomeStreet: B\n"),
              "mozillaHomeStreet: A\nmozillaHomeStreet: B\n");
    EXPECT_EQ(Back("ou: A\nou: B\ndepartment: D\n"), "ou: D\nou: A\nou: B\n");
}

TEST(RoundTrip, AStreetIsTheStreetWhereverItStands) {
    EXPECT_EQ(Back("postalAddress: P $ Q\nstreet: S\n"), "street: S\npostalAddress: P $ Q\n");
    EXPECT_EQ(Back("street: S\npostalAddress: P\n"), "street: S\npostalAddress: P\n");
    EXPECT_EQ(Back("homePostalAddress: P\nmozillaHomeStreet: S\n"),
              "mozillaHomeStreet: S\nhomePostalAddress: P\n");
    EXPECT_EQ(Back("postalAddress: P\n"), "street: P\n");
}

TEST(RoundTrip, TheNameIsCnWhereverItStands) {
    const std::string card = ToCard("dn: cn=Al\ndisplayName: Bo\ncn: Al\n");
    EXPECT_NE(card.find("\r\nFN:Al\r\nX-ORVIK-LDIF-displayName:Bo\r\n"), std::string::npos) << card;
    EXPECT_EQ(Back("displayName: Bo\n"), "displayName: Bo\n");
}

TEST(RoundTrip, EmptyValuesStay) {
    EXPECT_EQ(Back("mobile: \nmail:\n"), "mobile:\nmail:\n");
    EXPECT_EQ(Back("sn:\n"), "sn:\n");
}

TEST(RoundTrip, NumbersAreNames) {
    EXPECT_EQ(Back("2.5.4.99: oid\n"), "2.5.4.99: oid\n");
}

TEST(RoundTrip, ABlankOrTabBeforeAValueStays) {
    const std::string lines = "UID:1\r\nN:Al;;;;\r\nFN:Al\r\nTITLE:\ta\r\nNOTE: b \r\nX-F:\t\r\n";
    const std::string card = "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
    EXPECT_EQ(ToCard(ToLdif(card)), card);
}

TEST(RoundTrip, ANulOfACardComesBack) {
    const std::string lines = "UID:1\r\nN:Al;;;;\r\nFN:Al\r\nNOTE:a\0b\r\nX-F:a\0b\r\n"s;
    const std::string card = "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
    EXPECT_EQ(ToCard(ToLdif(card)), card);
}

// What a book that is written as 4.0 tells of as lost.
std::string Lost(ReadBook::Reader reader, const std::string& bytes, std::string_view set = {}) {
    ReadBook read(reader, bytes, set);
    EXPECT_EQ(read.book.Told.Count(What::Lost), 0U);
    static_cast<void>(WriteVCard(read.book, Dialect::VCard40));
    std::string lost;
    for (const Remark& one : read.book.Told.Remarks()) {
        lost += one.Kind == What::Lost ? std::string(one.Field).append(" ") : "";
    }
    return lost;
}

TEST(RoundTrip, BytesThatAreNoLettersAreLostUnlessTheContactStays) {
    const std::string begin = "BEGIN:VCARD\nVERSION:3.0\nFN:Al\n";
    const std::string end = "END:VCARD\n";
    EXPECT_EQ(Lost(ReadVCard, begin + "NOTE:\xC3\xA4\n" + end), "");
    EXPECT_EQ(Lost(ReadVCard,
                   begin +
                       "X-A:a\xFF\x81"
                       "b\nNOTE:\xC3\xA4\n" +
                       end),
              "X-A ");
    EXPECT_EQ(Lost(ReadVCard, begin + "X-A;X-P=a\xFF:b\nNOTE:\xC3\xA4\n" + end), "X-A ");
    EXPECT_EQ(Lost(ReadVCard, begin + "X-F;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3\n" + end),
              "X-F ");
    // The parts of one value are one loss; a set that nobody knows is guessed.
    EXPECT_EQ(
        Lost(ReadVCard, begin + "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3;=C3;;;\n" + end),
        "N ");
    EXPECT_EQ(Lost(ReadVCard, begin + "NOTE;CHARSET=x;ENCODING=QUOTED-PRINTABLE:=C4\n" + end), "");
    EXPECT_EQ(Lost(ReadLdif, "dn: cn=Al\ncn: Al\nx: \xFF\xFE\n", "UTF-8"), "x ");
    EXPECT_EQ(Lost(ReadLdif, "dn: cn=Al\ncn: Al\nx: \xFF\xFE\n"), "");
    std::string wide = "\xFF\xFE"s;
    for (const char c : "dn: cn=Al\ncn: Al\nx: ?\ny: z\n"s) {
        wide += c;
        wide += c == '?' ? '\xD8' : '\0';
    }
    EXPECT_EQ(Lost(ReadLdif, wide), "x ");

    const std::string card = begin + "X-A:a\xFF\nNOTE:\xC3\xA4\n" + end;
    ReadBook stays(ReadVCard, card);
    EXPECT_EQ(WriteVCard(stays.book, Dialect::VCard30), card);
    EXPECT_EQ(stays.book.Told.Count(What::Lost), 0U);
}

TEST(RoundTrip, LineBreaksStayThoseBreaks) {
    for (const std::string line : {"description:: b25lDQp0d28NCg==\n",
                                   "x-own:: YQ1iDWMKZA==\n",
                                   "x-own:: YQpi\n",
                                   "mozillaWorkUrl:: YQpiXG5jDWQ=\n"}) {
        EXPECT_EQ(Back(line), line);
        EXPECT_EQ(Back(line, Dialect::VCard40), line);
    }
    EXPECT_NE(ToCard("dn: cn=Al\ncn: Al\ndescription:: b25lDQp0d28NCg==\n")
                  .find("NOTE;X-ORVIK-BREAKS=w:one\\ntwo\\n\r\n"),
              std::string::npos);
    // A CR that stands alone in quoted-printable, through LDIF.
    const std::string old =
        "BEGIN:VCARD\nVERSION:2.1\nN:Al;;;;\nFN:Al\nUID:1\n"
        "NOTE;ENCODING=QUOTED-PRINTABLE:a=0Db=0D=0Ac\n"
        "X-F;ENCODING=QUOTED-PRINTABLE:a=0Db=0D=0Ac\nEND:VCARD\n";
    ReadBook read(ReadVCard, old);
    const std::string shown = test::Shown(read.book);
    EXPECT_EQ(shown, "person\nN:Al;;;;\nFN:Al\nUID:1\nNOTE:a\\x0Db\\x0Ac\nX-F:a\\x0Db\\nc\n");
    ReadBook again(ReadVCard, WriteVCard(read.book, Dialect::VCard30));
    EXPECT_EQ(test::Shown(again.book),
              "person\nUID:1\nN:Al;;;;\nFN:Al\n"
              "NOTE:a\\x0Db\\x0Ac\nX-F:a\\x0Db\\nc\n");
    ReadBook from_ldif(ReadLdif, WriteLdif(again.book, LdifAttributes::Mozilla));
    const std::string back = test::Shown(from_ldif.book);
    EXPECT_NE(back.find("NOTE:a\\x0Db\\x0Ac\nX-F:a\\x0Db\\nc\n"), std::string::npos) << back;
}

TEST(RoundTrip, BreaksThatAreNoLfAreToldInPartsOfAField) {
    ReadBook street(ReadLdif, "dn: cn=Al\ncn: Al\nstreet:: YQ0KYg==\n");
    EXPECT_EQ(test::Told(street.book),
              "doubtful 1 ADR: a\\x0D\\x0Ab: has signs that the target cannot hold\n");
    ReadBook nickname(ReadLdif, "dn: cn=Al\ncn: Al\nnickname:: YQ0KYg==\n");
    EXPECT_EQ(nickname.book.Told.Count(What::Doubtful), 1U);
}

TEST(RoundTrip, APictureComesBackThroughEachVersion) {
    EXPECT_EQ(Back("jpegPhoto:: /9j/\n"), "jpegPhoto:: /9j/\n");
    EXPECT_EQ(Back("jpegPhoto:: /9j/\n", Dialect::VCard40), "jpegPhoto:: /9j/\n");
    // Once, also where it is carried besides.
    const std::string card =
        "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:1\r\nFN:Al\r\n"
        "item1.PHOTO:data:image/jpeg;base64,/9j/\r\nEND:VCARD\r\n";
    ReadBook read(ReadLdif, ToLdif(card));
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard40), card);
}

TEST(RoundTrip, OptionsOfPlacesAndPicturesComeBack) {
    const std::string place = "userCertificate;binary:< file:///x/y\n";
    EXPECT_EQ(Back(place), place);
    EXPECT_EQ(Back(place, Dialect::VCard40), place);
    const std::string card = ToCard("dn: cn=Al\ncn: Al\njpegPhoto;binary:: /9j/\n");
    EXPECT_NE(card.find("\r\nPHOTO;ENCODING=b;TYPE=JPEG;X-ORVIK-OPTIONS=binary:/9j/\r\n"),
              std::string::npos)
        << card;
    EXPECT_EQ(ToCard(ToLdif(card)), card);
    // A place with letters that LDIF cannot name a place with.
    const std::string other = ToCard("dn: cn=Al\ncn: Al\njpegPhoto:< file:///\xC3\xA4\n");
    EXPECT_EQ(ToCard(ToLdif(other)), other);
}

TEST(RoundTrip, LanguagesBehindAPlainTextComeBack) {
    const std::string lines =
        "cn;lang-de: Alf\ntitle: Chief\ntitle;lang-de: Chef\ntitle;lang-fr-CA: Patron\n";
    EXPECT_EQ(Back(lines), lines);
    EXPECT_EQ(Back(lines, Dialect::VCard40), lines);
    // Programs look for the plain name.
    EXPECT_EQ(Back("title;lang-de: Chef\n").find("title: Chef\nx-orvik-vcard-title: "), 0U);
    const std::string odd =
        "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:1\r\nFN:Al\r\n"
        "FN;LANGUAGE=\"a;b: c\":Bo\r\nFN;LANGUAGE=a^nb:Bo\r\nEND:VCARD\r\n";
    ReadBook read(ReadLdif, ToLdif(odd));
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard40), odd);
}

TEST(RoundTrip, MembersKeepTheirParametersAndGroups) {
    const std::string cards =
        "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:1\r\nFN:Al\r\nEMAIL:a@x\r\nEND:VCARD\r\n"
        "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:2\r\nFN:Team\r\nKIND:group\r\n"
        "MEMBER;PREF=1:1\r\nitem1.MEMBER:1\r\nMEMBER;X-P=1:mailto:b@x\r\nMEMBER:mailto:c@x\r\n"
        "MEMBER:urn:uuid:00000000-0000-0000-0000-000000000000\r\nEND:VCARD\r\n";
    ReadBook read(ReadLdif, ToLdif(cards));
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard40), cards);
}

TEST(RoundTrip, ProgramsGetAddressesOfTheWebWithPlainColons) {
    const std::string card =
        "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:Al;;;;\r\nFN:Al\r\n"
        "URL;TYPE=work:http\\://a\\:80/\\,b\\\r\nitem1.URL:http\\://c\r\nEND:VCARD\r\n";
    const std::string ldif = ToLdif(card);
    EXPECT_NE(ldif.find("\nmozillaWorkUrl: http://a:80/\\,b\\\n"), std::string::npos) << ldif;
    EXPECT_NE(ldif.find("\nmozillaWorkUrl: http://c\n"), std::string::npos) << ldif;
    EXPECT_EQ(ToCard(ldif), card);
}

TEST(RoundTrip, OneNumberMayBeOfTwoPlaces) {
    for (const std::string lines : {"telephoneNumber: 5\nhomePhone: 5\nmobile: 5\n",
                                    "mozillaWorkUrl: u\nmozillaHomeUrl: u\n",
                                    "street: 1 Road\nmozillaHomeStreet: 1 Road\n"}) {
        EXPECT_EQ(Back(lines), lines);
    }
}

TEST(RoundTrip, WhatACardCallsAFieldOfLdifStaysOneLine) {
    const std::string lines =
        "UID:1\r\nFN:Al\r\nX-ORVIK-LDIF-a;X-ORVIK-OPTIONS=\"b: x^n^ndn: cn=Bo\":v\r\n"
        "X-ORVIK-LDIF-f\xC3\xB6 bar:v\r\nX-ORVIK-LDIF-:w\r\n"
        "item1.X-ORVIK-LDIF-c;X-P=1:v\r\n";
    const std::string card = "BEGIN:VCARD\r\nVERSION:4.0\r\n" + lines + "END:VCARD\r\n";
    ReadBook read(ReadLdif, ToLdif(card));
    EXPECT_EQ(test::Told(read.book), "");
    EXPECT_EQ(WriteVCard(read.book, Dialect::VCard40), card);
    // A record has one name; another one is a field like others.
    ReadBook names(ReadLdif,
                   ToLdif("BEGIN:VCARD\nVERSION:3.0\nUID:1\nFN:Al\nX-ORVIK-LDIF-dn:cn=A\n"
                          "X-ORVIK-LDIF-dn:cn=B\nEND:VCARD\n"));
    const std::string shown = test::Shown(names.book);
    EXPECT_NE(shown.find("X-ORVIK-LDIF-dn:cn=A\n"), std::string::npos) << shown;
    EXPECT_NE(shown.find("X-ORVIK-LDIF-dn:cn=B\n"), std::string::npos) << shown;
}

TEST(RoundTrip, AddressesAtHomeAndAtWorkStayTwo) {
    for (const std::string lines : {"ADR;TYPE=home:1;;1 Road;Town;;;\r\nitem1.ADR:1;;1 Road\r\n",
                                    "ADR;TYPE=work:;;;;;;\r\nORG:;\r\nNICKNAME:,\r\n"}) {
        const std::string card = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:Al;;;;\r\nFN:Al\r\n" +
                                 lines + "END:VCARD\r\n";
        ReadBook read(ReadVCard, card);
        ReadBook again(ReadVCard, ToCard(ToLdif(card)));
        EXPECT_EQ(again.book.Contacts[0].Properties.size(), read.book.Contacts[0].Properties.size())
            << ToLdif(card);
    }
}

TEST(RoundTrip, NicknamesOfOneFieldStayOneField) {
    for (const std::string lines : {"item1.NICKNAME:a,b\r\n",
                                    "NICKNAME;TYPE=work:b\\,\\;,a\\\\\r\n",
                                    "NICKNAME:a\r\nitem1.NICKNAME:a,b\r\n",
                                    "item1.NICKNAME:a\r\nitem2.NICKNAME:b,c\r\n"}) {
        const std::string card = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:Al;;;;\r\nFN:Al\r\n" +
                                 lines + "END:VCARD\r\n";
        EXPECT_EQ(ToCard(ToLdif(card)), card);
    }
}

TEST(RoundTrip, ADateThatIsTextStaysText) {
    const std::string lines = "UID:1\r\nN:Al;;;;\r\nFN:Al\r\nBDAY;VALUE=text:2016-08-01\r\n";
    const std::string card = "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
    ReadBook read(ReadVCard, card);
    ReadBook newer(ReadVCard, WriteVCard(read.book, Dialect::VCard40));
    EXPECT_EQ(WriteVCard(newer.book, Dialect::VCard30), card);
}

TEST(RoundTrip, WhatIsNoPersonInADirectoryHasANameAndItsClass) {
    const std::string unit =
        "dn: ou=Sales,o=Firm\nobjectclass: top\n"
        "objectclass: organizationalUnit\n";
    const std::string card = ToCard(unit + "ou: Trade\n");
    EXPECT_NE(card.find("\r\nFN:Trade\r\n"), std::string::npos) << card;
    EXPECT_NE(ToCard(unit).find("\r\nFN:Sales\r\n"), std::string::npos);
    const std::string back = ToLdif(card);
    EXPECT_NE(back.find("objectclass: organizationalUnit\n"), std::string::npos) << back;
    EXPECT_EQ(back.find("erson"), std::string::npos) << back;
}

TEST(RoundTrip, WhatIsNoFieldIsToldWhereItBecomesOne) {
    ReadBook read(ReadLdif, "dn: cn=Al\ncn: Al\nx-a\"b: 1\n");
    EXPECT_NE(WriteLdif(read.book, LdifAttributes::Mozilla).find("\nno-field: x-a\"b: 1\n"),
              std::string::npos);
    EXPECT_EQ(read.book.Told.Count(What::Carried), 1U);
}

TEST(RoundTrip, AVersionThatIsNotKnownIsDoubtedOnceAndKept) {
    ReadBook read(ReadVCard, "BEGIN:VCARD\nVERSION:9.9\nFN:Al\nEND:VCARD\n");
    EXPECT_EQ(test::Told(read.book), "doubtful 1 VERSION: 9.9: has a version that is not known\n");
    EXPECT_NE(WriteVCard(read.book, Dialect::VCard30).find("\r\nX-ORVIK-VCARD-VERSION:9.9\r\n"),
              std::string::npos);
    ReadBook none(ReadVCard, "BEGIN:VCARD\nFN:Al\nEND:VCARD\n");
    EXPECT_EQ(test::Told(none.book), "doubtful 1 : : has no version\n");
}

}  // namespace
}  // namespace orvik::book
