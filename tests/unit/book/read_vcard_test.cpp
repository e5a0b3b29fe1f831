#include "book/read_vcard.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

std::string Card(std::string_view version, std::string_view lines, std::string_view end = "\r\n") {
    std::string card = "BEGIN:VCARD" + std::string(end);
    if (!version.empty()) {
        card += "VERSION:" + std::string(version) + std::string(end);
    }
    for (const char c : lines) {
        card += c == '\n' ? end : std::string_view(&c, 1);
    }
    return card + "END:VCARD" + std::string(end);
}

// What the lines of one card become, without the kind of contact.
std::string Read(std::string_view version, std::string_view lines) {
    const ReadBook read(ReadVCard, Card(version, lines));
    EXPECT_EQ(Told(read.book), "") << lines;
    return read.book.Contacts.size() == 1
               ? Shown(read.book, read.book.Contacts[0]).substr(sizeof "person")
               : "not one";
}

TEST(ReadVCard, TakesACardOfEachVersion) {
    EXPECT_EQ(Read("3.0",
                   "UID:1\nN:Abbott;Ada;;Dr.;\nFN:Dr. Ada Abbott\nNICKNAME:ada\n"
                   "EMAIL;TYPE=INTERNET,PREF:ada@example.org\n"
                   "item1.EMAIL;type=INTERNET;type=home:crew@example.net\n"
                   "item1.X-ABLabel:Boat house\n"
                   "NOTE:Rows on Tuesday\\, not on Friday\\n\n"),
              "UID:1\nN:Abbott;Ada;;Dr.;\nFN:Dr. Ada Abbott\nNICKNAME:ada\n"
              "EMAIL;TYPE=INTERNET;TYPE=PREF:ada@example.org\n"
              "item1.EMAIL;TYPE=INTERNET;TYPE=home:crew@example.net\n"
              "item1.X-ABLabel:Boat house\n"
              "NOTE:Rows on Tuesday, not on Friday\\x0A\n");
    EXPECT_EQ(Read("2.1", "TEL;HOME;VOICE;PREF:1\nTEL;TYPE=CELL:2\nNOTE:C:\\new, old; end\n"),
              "TEL;TYPE=HOME;TYPE=VOICE;TYPE=PREF:1\nTEL;TYPE=CELL:2\nNOTE:C:\\new, old; end\n");
    EXPECT_EQ(Read("4.0",
                   "TEL;TYPE=\"home,voice\";VALUE=uri;PREF=1:tel:+1-555\n"
                   "ADR;LABEL=\"1 Road^n^'Town^'^^\":;;1 Road;Town;;;\nURL:http\\://a/\\,b\n"),
              "TEL;TYPE=home;TYPE=voice;VALUE=uri;PREF=1:tel:+1-555\n"
              "ADR;LABEL=1 Road\\x0A\"Town\"^:;;1 Road;Town;;;\nURL:http\\://a/\\,b\n");
}

TEST(ReadVCard, UnfoldsAsTheVersionDoes) {
    EXPECT_EQ(Read("3.0", "NOTE:ab\n c\n\td\nFN:\xC3\n \xB6\n"), "NOTE:abcd\nFN:\xC3\xB6\n");
    EXPECT_EQ(Read("2.1", "NOTE:ab\n c\n\td\n"),
              "NOTE:ab c\\x09"
              "d\n");
    // The version may stand anywhere, and the head may be folded, too.
    EXPECT_EQ(Read("", "NOTE:ab\n c\nVERSION:2.1\n"), "NOTE:ab c\n");
    EXPECT_EQ(Read("3.0", "TEL;TYPE=\n HOME;X=\"a:\n b\":1\n 2\n"), "TEL;TYPE=HOME;X=a:b:12\n");
}

TEST(ReadVCard, JoinsSoftLineEndsOfQuotedPrintableOnly) {
    EXPECT_EQ(Read("2.1",
                   "NOTE;ENCODING=QUOTED-PRINTABLE:one=0D=0A=\ntwo=0D=\n=0Athree=\n  four\n"
                   "URL:http://a?b=\nFN;QUOTED-PRINTABLE:A=6C=\n"),
              "NOTE:one\\x0Atwo\\x0Athree  four\nURL:http://a?b=\nFN:Al\n");
    // Writers that indent do it in each line.
    EXPECT_EQ(Read("2.1",
                   "NOTE;ENCODING=QUOTED-PRINTABLE:one=\n two=\n\tthree=\n\n"
                   "TITLE;QUOTED-PRINTABLE:a=\nb=\n c=\n\t =\nd\n"),
              "NOTE:onetwothree\nTITLE:ab c\\x09 d\n");
}

TEST(ReadVCard, SplitsBeforeItDecodes) {
    EXPECT_EQ(Read("2.1",
                   "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller=3B;J=C3=B6rg;Al\\;x;;\n"
                   "ADR;WORK;ENCODING=QUOTED-PRINTABLE:;;1 Road=0D=0ABack, left;Town\n"
                   "N:Doe;John;Richter,James;Mr.\\,x;\n"
                   "CATEGORIES:a,b\nNICKNAME;ENCODING=QUOTED-PRINTABLE:a=2Cb\n"),
              "N:M\xC3\xBCller\\;;J\xC3\xB6rg;Al\\;x;;\n"
              "ADR;TYPE=WORK:;;1 Road\\nBack\\, left;Town\n"
              "N:Doe;John;Richter\\,James;Mr.\\,x;\n"
              "CATEGORIES:a,b\nNICKNAME:a\\,b\n");
}

TEST(ReadVCard, TakesBase64OfEachVersion) {
    EXPECT_EQ(
        Read("2.1", "PHOTO;BASE64;TYPE=JPEG:\n  /9j/\n  4AAQ\n\nKEY;ENCODING=BASE64:MIIB\nAAEC\n"),
        "PHOTO;ENCODING=b;TYPE=JPEG:/9j/4AAQ\nKEY;ENCODING=b:MIIBAAEC\n");
    EXPECT_EQ(Read("3.0", "PHOTO;ENCODING=b;TYPE=JPEG:/9j/\n 4AAQ\nX-B;TYPE=B:x\n"),
              "PHOTO;ENCODING=b;TYPE=JPEG:/9j/4AAQ\nX-B;TYPE=B:x\n");
}

TEST(ReadVCard, KeepsACardInsideOfACard) {
    EXPECT_EQ(Read("2.1",
                   "AGENT:\nBEGIN:VCARD\nVERSION:2.1\nN:Bo,x\nAGENT:\nBEGIN:VCARD\nEND:VCARD\n"
                   "END:VCARD\nFN:Al\n"),
              "AGENT:BEGIN:VCARD\\nVERSION:2.1\\nN:Bo\\,x\\nAGENT:\\nBEGIN:VCARD\\nEND:VCARD\\n"
              "END:VCARD\\n\nFN:Al\n");
    EXPECT_EQ(Read("3.0", "AGENT:BEGIN:VCARD\\nFN:Bo\\nEND:VCARD\\n\n"),
              "AGENT:BEGIN:VCARD\\nFN:Bo\\nEND:VCARD\\n\n");
}

TEST(ReadVCard, KnowsListsInEachForm) {
    for (const std::string line :
         {"KIND:group\n", "X-ADDRESSBOOKSERVER-KIND:Group\n", "X-EVOLUTION-LIST:TRUE\n"}) {
        const ReadBook read(ReadVCard, Card("3.0", "FN:Rowers\n" + line));
        ASSERT_EQ(read.book.Contacts.size(), 1U);
        EXPECT_EQ(read.book.Contacts[0].Kind, ContactKind::List) << line;
    }
    const ReadBook read(ReadVCard, Card("4.0", "FN:Al\nKIND:individual\nX-EVOLUTION-LIST:FALSE\n"));
    EXPECT_EQ(read.book.Contacts[0].Kind, ContactKind::Person);
}

TEST(ReadVCard, TakesEachLineEndAndWhereEachCardStands) {
    for (const std::string_view end : {"\n", "\r\n", "\r"}) {
        const std::string one = Card("3.0", "FN:Al\n\nNOTE:a\n b\n", end);
        const std::string two = Card("4.0", "FN:Bo\n", end);
        const std::string between = std::string(end) + std::string(end);
        const ReadBook read(ReadVCard, one + between + two);
        ASSERT_EQ(read.book.Contacts.size(), 2U);
        EXPECT_EQ(Shown(read.book), "person\nFN:Al\nNOTE:ab\nperson\nFN:Bo\n");
        EXPECT_EQ(read.book.BytesOf(read.book.Contacts[0]), one);
        EXPECT_EQ(read.book.BytesOf(read.book.Contacts[1]), two);
        EXPECT_EQ(read.book.Contacts[1].From.Line, 10U);
        EXPECT_EQ(read.book.Contacts[1].From.Lines, 4U);
        EXPECT_EQ(read.book.Contacts[1].Form, Dialect::VCard40);
        EXPECT_EQ(read.book.Contacts[0].Properties[1].Line, 5U);
        EXPECT_EQ(Told(read.book), "");
    }
}

TEST(ReadVCard, ReadsLettersByValueCardAndFile) {
    const ReadBook read(ReadVCard,
                        Card("2.1",
                             "N;CHARSET=windows-1250:\xB3"
                             "a\nFN:J\xF6rg\n"
                             "NOTE;ENCODING=QUOTED-PRINTABLE:Zo=C3=AB\n") +
                            Card("3.0", "FN:Zo\xC3\xAB\n") + Card("3.0", "FN:Fran\xE7ois\n"));
    EXPECT_EQ(Shown(read.book),
              "person\nN:\xC5\x82"
              "a\nFN:J\xC3\xB6rg\nNOTE:Zo\xC3\xAB\n"
              "person\nFN:Zo\xC3\xAB\nperson\nFN:Fran\xC3\xA7ois\n");
    EXPECT_FALSE(read.book.Contacts[0].IsUtf8);
    EXPECT_TRUE(read.book.Contacts[1].IsUtf8);
    EXPECT_NE(read.sentence.find("(assumed; e.g. \"J\xC3\xB6rg\", \"Fran\xC3\xA7ois\""),
              std::string::npos)
        << read.sentence;
    const ReadBook unknown(ReadVCard, Card("2.1", "FN;CHARSET=none:J\xF6rg\n"));
    EXPECT_EQ(Shown(unknown.book), "person\nFN:J\xC3\xB6rg\n");
    // Bytes that look like separators are letters where the set says so.
    const ReadBook japanese(ReadVCard, Card("2.1", "N;CHARSET=SHIFT_JIS:\x83\x5C;\x95\x5C\n"));
    EXPECT_EQ(Shown(japanese.book), "person\nN:\xE3\x82\xBD;\xE8\xA1\xA8\n");
}

struct Row {
    std::string Cards;
    std::string Shown;
    std::string Told;
};

void Check(const Row& row) {
    const ReadBook read(ReadVCard, row.Cards);
    EXPECT_EQ(Shown(read.book), row.Shown) << row.Cards;
    EXPECT_EQ(Told(read.book), row.Told) << row.Cards;
}

TEST(ReadVCard, TakesFilesThatWereJoined) {
    Check(
        {"\xEF\xBB\xBF"
         "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Al\r\nEND:VCARD\r\n\x1A\xEF\xBB\xBF"
         "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Bo\r\nEND:VCARD\x1A",
         "person\nFN:Al\nperson\nFN:Bo\n",
         ""});
}

TEST(ReadVCard, TellsWhatIsOdd) {
    Check({"BEGIN:VCARD\nVERSION:3.0\nFN:Al\nBEGIN:VCARD\nVERSION:3.0\nFN:Bo\nEND:VCARD\n",
           "person\nFN:Al\nperson\nFN:Bo\n",
           "doubtful 1 : FN:Al: has no end\n"});
    Check({"BEGIN:VCARD\nVERSION:3.0\nPHOTO;ENCODING=b:/9j/4",
           "person\nPHOTO;ENCODING=b:/9j/4\n",
           "doubtful 1 : PHOTO;ENCODING=b:/9j/4: is cut off by the end of the file\n"
           "doubtful 1 PHOTO: /9j/4: is no base64\n"});
    Check({"one\ntwo\nEND:VCARD\nBEGIN:VCARD\nEND:VCARD\nthree\n\x1A",
           "",
           "skipped 1 : one: belongs to no record\n"
           "skipped 3 : END:VCARD: ends what was not begun\n"
           "skipped 4 : : holds nothing\nskipped 6 : three: belongs to no record\n"});
    Check({"BEGIN:VCARD\nFN:Al\nlonely, words\r\nand more\nEND:VCARD\n",
           "person\nFN:Al\nX-ORVIK-VCARD-no-field:lonely, words\\nand more\n",
           "doubtful 1 : : has no version\ndoubtful 1 : lonely, words\\x0D\\x0Aand more: is no "
           "field\n"});
    Check({"BEGIN:VCARD \nVERSION:3.0\nN:Al;Bo\nX-Own Name;a.b.c=1:x\na.b.c:y\nEND:VCARD\n",
           "person\nN:Al;Bo\nX-Own Name;a.b.c=1:x\na.b.c:y\n",
           "doubtful 1 : BEGIN:VCARD : has blanks around it\n"
           "doubtful 1 N: Al;Bo: has fewer parts than it should\n"});
    Check({"BEGIN:VCARD\nVERSION:5.0\nFN:Al\nEND:VCARD\n",
           "person\nX-ORVIK-VCARD-VERSION:5.0\nFN:Al\n",
           "doubtful 1 VERSION: 5.0: has a version that is not known\n"});
    Check({"BEGIN:VCARD\nVERSION:3.0\nVERSION:4.0\nFN:Al\nEND:VCARD\n",
           "person\nX-ORVIK-VCARD-VERSION:4.0\nFN:Al\n",
           "doubtful 1 VERSION: 4.0: can be there only once\n"});
    Check({"BEGIN:VCARD\nVERSION:2.1\nFN;CHARSET=none:Al\nNOTE;QUOTED-PRINTABLE:a=b\nEND:VCARD\n",
           "person\nFN:Al\nNOTE:a=b\n",
           "doubtful 1 FN: Al: has a character set that is not known\n"
           "doubtful 1 NOTE: a=b: is no quoted-printable\n"});
}

}  // namespace
}  // namespace orvik::book
