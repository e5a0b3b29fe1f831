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

TEST(RoundTrip, EmptyValuesStay) {
    EXPECT_EQ(Back("mobile: \nmail:\n"), "mobile:\nmail:\n");
    EXPECT_EQ(Back("sn:\n"), "sn:\n");
}

TEST(RoundTrip, NumbersAreNames) {
    EXPECT_EQ(Back("2.5.4.99: oid\n"), "2.5.4.99: oid\n");
}

TEST(RoundTrip, ANulOfACardComesBack) {
    const std::string lines = "UID:1\r\nN:Al;;;;\r\nFN:Al\r\nNOTE:a\0b\r\nX-F:a\0b\r\n"s;
    const std::string card = "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
    EXPECT_EQ(ToCard(ToLdif(card)), card);
}

}  // namespace
}  // namespace orvik::book
