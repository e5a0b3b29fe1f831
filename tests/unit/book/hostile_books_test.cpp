// Files that nobody wrote on purpose: cut anywhere, or made to take time.

#include <cstddef>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "book/detect.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;

constexpr std::string_view kLdif =
    "\xEF\xBB\xBFversion: 1\r\n\r\ndn:: Y249SsO2cmc=\r\nobjectclass: top\r\ncn:: SsO2\r\n cmc=\r\n"
    "mail: j@x\r\njpegphoto:< file:///x\r\n# c\r\n d\r\nbirthyear: 1980\r\nsn;lang-de: x\r\n"
    "\r\ndn: cn=L\r\nchangetype: add\r\nobjectclass: groupOfNames\r\nmember: cn=a\\,b,mail=\r\n"
    "postalAddress: a $ \\24\r\n \r\ndn: \xF6\r\nlabeledURI: u l\r\n";

constexpr std::string_view kCards =
    "junk\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=\r\n"
    "=BCller;J=C3=B6rg\r\nTEL;HOME;VOICE:1\r\nPHOTO;BASE64:\r\n  /9j/\r\n  4AAQ\r\n\r\n"
    "AGENT:\r\nBEGIN:VCARD\r\nFN:Al\r\nEND:VCARD\r\nNOTE:J\xF6\r\n rg\r\nEND:VCARD\r\n\r\n"
    "BEGIN:VCARD\nVERSION:4.0\nitem1.EMAIL;TYPE=\"home,work\";X-A=\"^n;:\":a\\,b\n"
    "item1.X-ABLabel:_$!<Home>!$_\nKIND:group\nMEMBER:urn:uuid:1\nADR;LABEL=\"1\":;;1 Ro\n ad\n"
    "FN:\xC3\n \xB6\nBEGIN:VCARD\nX:y\n";

// Each value lies in the source or in the arena, so reading it all is a test of its own.
std::size_t Letters(const ReadBook& read) {
    return test::Shown(read.book).size() + test::Told(read.book).size() + read.sentence.size();
}

void CutEverywhere(ReadBook::Reader reader, std::string_view whole) {
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut(whole.substr(0, length));
        EXPECT_GE(Letters(ReadBook(reader, cut)), 5U);
        const std::string rest(whole.substr(length));
        EXPECT_GE(Letters(ReadBook(reader, rest)), 5U);
        const Source source("file", cut);
        EXPECT_NE(Detect(source).Evidence, "");
    }
}

void TakesAnything(ReadBook::Reader reader) {
    constexpr std::size_t kMany = 1U << 18U;
    for (const std::string_view part : {"x",
                                        "\n",
                                        "\r",
                                        " ",
                                        "\t",
                                        "\r\r",
                                        ":",
                                        "=",
                                        ";",
                                        "\\",
                                        "\xFF",
                                        "\xC3",
                                        "\n \n",
                                        "x\n ",
                                        "dn:\n",
                                        "dn:x\n\n",
                                        "dn:x\ncn:y\n \n",
                                        " \ndn:x\n",
                                        "#\n ",
                                        "a:b\n",
                                        "cn::QQ==\n",
                                        "BEGIN:VCARD\n",
                                        "END:VCARD\n",
                                        "BEGIN:VCARD\nN:;\n",
                                        "a;b=\"c:",
                                        "BEGIN:VCARD\n x;y=\"z:\n",
                                        "A;B=C;",
                                        "BEGIN:VCARD\nAGENT:\n",
                                        "X:=\n",
                                        "\x1B$"}) {
        std::string text;
        text.reserve(kMany + part.size());
        while (text.size() < kMany) {
            text += part;
        }
        const ReadBook read(reader, text);
        EXPECT_LE(read.book.TextHeld(), 3 * kMany) << test::Escaped(part);
        EXPECT_LE(read.book.Told.Remarks().size(), kMany / 2) << test::Escaped(part);
        const Source source("file", text);
        EXPECT_NE(Detect(source).Evidence, "");
    }
}

TEST(HostileBooks, LdifIsReadWhereverItIsCut) {
    CutEverywhere(ReadLdif, kLdif);
}

TEST(HostileBooks, LdifTakesAnyRepetition) {
    TakesAnything(ReadLdif);
}

void AnyByteAnywhere(ReadBook::Reader reader, std::string_view whole) {
    std::string text(whole);
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (const char byte : {'\0', '\n', '\r', ' ', ':', ';', '<', '=', '"', '\xFF'}) {
            const char old = text[at];
            text[at] = byte;
            EXPECT_GE(Letters(ReadBook(reader, text)), 5U);
            text[at] = old;
        }
    }
}

TEST(HostileBooks, LdifTakesAnyByteAnywhere) {
    AnyByteAnywhere(ReadLdif, kLdif);
}

TEST(HostileBooks, CardsAreReadWhereverTheyAreCut) {
    CutEverywhere(ReadVCard, kCards);
}

TEST(HostileBooks, CardsTakeAnyRepetition) {
    TakesAnything(ReadVCard);
}

TEST(HostileBooks, CardsTakeAnyByteAnywhere) {
    AnyByteAnywhere(ReadVCard, kCards);
}

TEST(HostileBooks, CardsThatAreNeverEndedAreToldEach) {
    std::string text;
    for (int i = 0; i < 10000; ++i) {
        text += "BEGIN:VCARD\nFN:Al\n";
    }
    const ReadBook read(ReadVCard, text);
    EXPECT_EQ(read.book.Contacts.size(), 10000U);
    EXPECT_EQ(read.book.Told.Count(What::Doubtful), 20000U);
}

}  // namespace
}  // namespace orvik::book
