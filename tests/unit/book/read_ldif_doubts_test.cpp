// What is odd in an LDIF file is told, and what it holds is kept all the same.

#include <string>

#include <gtest/gtest.h>

#include "book/read_ldif.h"
#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

struct Row {
    std::string Ldif;
    std::string Shown;
    std::string Told;
};

void Check(const Row& row) {
    const ReadBook read(ReadLdif, row.Ldif);
    EXPECT_EQ(Shown(read.book), row.Shown) << row.Ldif;
    EXPECT_EQ(Told(read.book), row.Told) << row.Ldif;
}

TEST(ReadLdifDoubts, LinesOutsideOfRecordsAreSkippedTogether) {
    Check({"From: me\nSubject: book\n\nhello\n\ndn: cn=Al\ncn: Al\n\n# end\nsearch: 2\nresult: 0\n",
           "person\nFN:Al\n",
           "skipped 1 : From: me: belongs to no record\n"
           "skipped 4 : hello: belongs to no record\n"
           "skipped 10 : search: 2: belongs to no record\n"});
    const ReadBook read(ReadLdif, "a: 1\nb: 2\nc: 3\n");
    EXPECT_EQ(read.book.Told.Count(What::Skipped), 3U);
    EXPECT_EQ(read.book.Told.Remarks().size(), 1U);
}

TEST(ReadLdifDoubts, FilesThatWereJoinedLoseNobody) {
    Check(
        {"\xEF\xBB\xBF"
         "dn: cn=Al\r\ncn: Al\r\n\r\n\xEF\xBB\xBF"
         "dn: cn=Bo\r\ncn: Bo\r\n\x1A",
         "person\nFN:Al\nperson\nFN:Bo\n",
         ""});
}

TEST(ReadLdifDoubts, AVersionIsNoRecordAndNeedsNoEmptyLine) {
    Check({"version: 1\ndn: cn=Al\ncn: Al\n\nversion: 1\n\ndn: cn=Bo\ncn: Bo\n",
           "person\nFN:Al\nperson\nFN:Bo\n",
           ""});
    Check({"version: 2\n\ndn: cn=Al\ncn: Al\n",
           "person\nFN:Al\n",
           "skipped 1 : version: 2: has a version that is not known\n"});
}

TEST(ReadLdifDoubts, ChangesOfOtherRecordsAreSkippedAndAddedOnesRead) {
    Check(
        {"dn: cn=Al\ncontrol: 1.2.3 true\nchangetype: add\ncn: Al\n\n"
         "dn: cn=Bo\nchangetype: delete\n\n"
         "dn: cn=Cy\nchangetype: modify\nreplace: mail\nmail: c\n-\n\n"
         "dn: cn=Di\nchangetype: modrdn\nnewrdn: cn=Do\ndeleteoldrdn: 1\n",
         "person\nFN:Al\n",
         "doubtful 1 : control: 1.2.3 true: is a control of a change\n"
         "doubtful 1 : add: is a record that a change adds\n"
         "skipped 6 : delete: changes or deletes another record\n"
         "skipped 9 : modify: changes or deletes another record\n"
         "skipped 15 : modrdn: changes or deletes another record\n"});
}

TEST(ReadLdifDoubts, FilesThatAreNamedAreNeverOpened) {
    Check({"dn: cn=Al\ncn: Al\njpegphoto:< file:///etc/passwd\n",
           "person\nFN:Al\nX-ORVIK-LDIF-jpegphoto;VALUE=uri:file:///etc/passwd\n",
           "doubtful 1 jpegphoto: file:///etc/passwd: names a file or an address that is never "
           "opened\n"});
}

TEST(ReadLdifDoubts, WhatShouldBeBase64StaysText) {
    Check({"dn: cn=Al\ncn:: Al!\n",
           "person\nFN:Al!\nX-ORVIK-LDIF-dn:cn=Al\n",
           "doubtful 1 cn: Al!: is no base64\n"});
    Check({"dn: cn=Al\ncn:: QW\n l\n", "person\nFN:Ai\nX-ORVIK-LDIF-dn:cn=Al\n", ""});
}

TEST(ReadLdifDoubts, LinesWithoutAnAttributeAreKept) {
    Check({"dn: cn=Al\ncn: Al\nlonely words\nand more\n:x\n",
           "person\nFN:Al\nX-ORVIK-LDIF-no-field:lonely words\\x0Aand "
           "more\nX-ORVIK-LDIF-no-field::x\n",
           "doubtful 1 : lonely words\\x0Aand more: is no field\ndoubtful 1 : :x: is no field\n"});
}

TEST(ReadLdifDoubts, ANameBeginsTheNextRecordInAnyCase) {
    Check({"dn: cn=Al\ncn: Al\ndn: cn=Bo\ncn: Bo\n",
           "person\nFN:Al\nperson\nFN:Bo\n",
           "doubtful 1 : dn: cn=Al: has no end\n"});
    Check({"dn: cn=Al\ncn: Al\n  \n\t\ndn: cn=Bo\ncn: Bo\n",
           "person\nFN:Al\nperson\nFN:Bo\n",
           "doubtful 1 : cn: Al: a line of blanks was taken for an empty one\n"});
    Check({"dn: cn=Al\ncn: Al\n  \nmail: a\n",
           "person\nFN:Al \nEMAIL:a\nX-ORVIK-LDIF-dn:cn=Al\n",
           ""});
    Check({"\n \n\ndn: cn=Al\ncn: Al\n", "person\nFN:Al\n", ""});
}

TEST(ReadLdifDoubts, ATabFoldsToo) {
    Check({"dn: cn=Al\ncn: A\n\tl\n",
           "person\nFN:Al\n",
           "doubtful 1 : cn: Al: goes on after a tab\n"});
}

TEST(ReadLdifDoubts, CommentsGoWithTheirContinuations) {
    Check({"# one\n two\ndn: cn=Al\n# three\n four\ncn: Al\n", "person\nFN:Al\n", ""});
}

TEST(ReadLdifDoubts, LettersAreReadByTheRecord) {
    const ReadBook read(ReadLdif,
                        "dn: cn=J\xF6rg\ncn: J\xF6rg\n\n"
                        "dn: cn=Zo\xC3\xAB\ncn: Zo\xC3\xAB\n\n"
                        "dn: cn=Al\ncn:: SvZyZw==\nsn:: SsO2cmc=\n");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:J\xC3\xB6rg\nperson\nFN:Zo\xC3\xAB\n"
              "person\nFN:J\xC3\xB6rg\nN:J\xC3\xB6rg;;;;\nX-ORVIK-LDIF-dn:cn=Al\n");
    EXPECT_EQ(read.sentence,
              "UTF-8 (1 record), windows-1252 (assumed; e.g. \"J\xC3\xB6rg\") (2 records, lines 1, "
              "8)");
    EXPECT_FALSE(read.book.Contacts[0].IsUtf8);
    EXPECT_TRUE(read.book.Contacts[1].IsUtf8);
    EXPECT_TRUE(read.book.Contacts[2].IsUtf8);
}

TEST(ReadLdifDoubts, TheUsersCharacterSetWins) {
    const ReadBook read(ReadLdif, "dn: cn=J\x9Arg\ncn: J\x9Arg\n", "macintosh");
    EXPECT_EQ(Shown(read.book), "person\nFN:J\xC3\xB6rg\n");
    EXPECT_EQ(read.sentence, "macintosh");
}

TEST(ReadLdifDoubts, OneBrokenLetterAmongGoodOnesIsTold) {
    Check({"dn: cn=Zo\xC3\xAB\ncn: Zo\xC3\xAB\ndescription: cut \xC3\n",
           "person\nFN:Zo\xC3\xAB\nNOTE:cut \xEF\xBF\xBD\n",
           "doubtful 1 description: cut \xC3: has bytes that are no text\n"});
}

}  // namespace
}  // namespace orvik::book
