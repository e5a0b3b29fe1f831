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

TEST(HostileBooks, LdifTakesAnyByteAnywhere) {
    std::string text(kLdif);
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (const char byte : {'\0', '\n', '\r', ' ', ':', ';', '<', '\xFF'}) {
            const char old = text[at];
            text[at] = byte;
            EXPECT_GE(Letters(ReadBook(ReadLdif, text)), 5U);
            text[at] = old;
        }
    }
}

}  // namespace
}  // namespace orvik::book
