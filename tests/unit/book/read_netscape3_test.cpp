#include "book/old/read_netscape3.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using test::ReadBook;
using test::Shown;
using test::Told;

std::string Read(const std::string& page) {
    return Shown(ReadBook(ReadNetscape3, page).book);
}

std::string ToldOf(const std::string& page) {
    return Told(ReadBook(ReadNetscape3, page).book);
}

constexpr std::string_view kHead =
    "<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n"
    "<!-- This is an automatically generated file.\r\n"
    "It will be read and overwritten.\r\n"
    "Do Not Edit! -->\r\n"
    "<TITLE>Ada Abbott's Address book</TITLE>\r\n"
    "<H1>Ada Abbott's Address book</H1>\r\n"
    "\r\n"
    "<DL><p>\r\n";

TEST(ReadNetscape3, TakesAPerson) {
    EXPECT_EQ(Read(std::string(kHead) +
                   "    <DT><A HREF=\"mailto:ada%40example.org\" ALIASID=\"0\" NICKNAME=\"ada\">"
                   "Abbott, Ada &amp; Co</A>\r\n"
                   "    <DD>Rows on Tuesday<BR>\r\n    not on &lt;Friday&gt;\r\n"
                   "    <DT><A HREF=\"mailto:\">Ben</A>\r\n<DD>\r\n"
                   "</DL><p>\r\n"),
              "person\n"
              "FN:Abbott, Ada & Co\n"
              "N:Abbott;Ada & Co;;;\n"
              "NICKNAME:ada\n"
              "EMAIL:ada@example.org\n"
              "NOTE:Rows on Tuesday\\x0Anot on <Friday>\n"
              "person\n"
              "FN:Ben\n"
              "N:;Ben;;;\n");
    EXPECT_EQ(ToldOf(std::string(kHead) + "</DL><p>\r\n"), "");
}

TEST(ReadNetscape3, TakesWhatTheClassicProgramWrote) {
    EXPECT_EQ(
        Read("<DL><p>\r\n"
             "    <DT><A HREF=\"mailto:a_b'c'@example.org\" ALIASID=\"0\">R&D <al@x> \"Q\"</A>\r\n"
             "<DD>\r\n"
             "    <DT><A HREF=\"mailto:al>b@example.org\" ALIASID=\"1\"></A>\r\n"
             "<DD>\r\n"
             "\r\n</DL><p>\r\n"),
        "person\n"
        "FN:R&D <al@x> \"Q\"\n"
        "N:\"Q\";R&D <al@x>;;;\n"
        "EMAIL:a_b'c'@example.org\n"
        "person\n"
        "EMAIL:al>b@example.org\n");
}

// The window lists the address of a page as the nickname, and so it writes it.
TEST(ReadNetscape3, FindsAddressesInThePlaceOfNames) {
    const std::string page =
        "<DL><p>\r\n<DT><A HREF=\"mailto:Ada_Abbott\" "
        "ALIASID=\"0\">ada_a@example.org</A>\r\n<DD>\r\n"
        "<DT><A HREF=\"mailto:Ben\" ALIASID=\"1\">ben@example.org</A>\r\n<DD>\r\n</DL><p>\r\n";
    EXPECT_EQ(Read(page),
              "person\nFN:Ada Abbott\nN:Abbott;Ada;;;\nEMAIL:ada_a@example.org\n"
              "person\nFN:Ben\nN:;Ben;;;\nEMAIL:ben@example.org\n");
    EXPECT_EQ(ToldOf(page).substr(0, ToldOf(page).find('\n')),
              "doubtful 2 EMAIL: ada_a@example.org: stood in the place of the name, as in all such "
              "entries of the file");
}

TEST(ReadNetscape3, FoldersAreListsOfWhatIsInThem) {
    const std::string page =
        "<DL><p>\n"
        "<DT><A HREF=\"mailto:ada@example.org\" ALIASID=\"0\">Ada</A>\n"
        "<DT><H3 FOLDED ALIASID=\"7\" NICKNAME=\"rowers\">Rowers</H3>\n"
        "<DD>Tuesday crew\n"
        "<DL><p>\n"
        "    <DT><A HREF=\"mailto:ada@example.org\" ALIASOF=\"0\">Ada</A>\n"
        "    <DT><A HREF=\"mailto:ben@example.org\">Ben</A>\n"
        "    <DT><H3 ALIASOF=\"9\">Coxes</H3>\n"
        "    <DT><H3>Inside</H3>\n"
        "    <DL><DT><A HREF=\"mailto:ada@example.org\" ALIASOF=\"0\">Ada</A></DL>\n"
        "</DL><p>\n"
        "<DT><H3 ALIASID=\"9\" NICKNAME=\"coxes\"></H3>\n"
        "</DL><p>\n";
    EXPECT_EQ(Read(page),
              "person\nFN:Ada\nN:;Ada;;;\nEMAIL:ada@example.org\n"
              "list\nFN:Rowers\nNICKNAME:rowers\nNOTE:Tuesday crew\n"
              "MEMBER:x-orvik-line:2\nMEMBER:x-orvik-line:7\nMEMBER:x-orvik-line:12\n"
              "X-ORVIK-NETSCAPE3-copy-name:Coxes\n"
              "MEMBER:x-orvik-line:9\n"
              "person\nFN:Ben\nN:;Ben;;;\nEMAIL:ben@example.org\n"
              "list\nFN:Inside\nMEMBER:x-orvik-line:2\n"
              "list\nFN:coxes\nNICKNAME:coxes\n");
    EXPECT_EQ(ToldOf(page), "");
}

// Joined books have each number twice; whoever is nobody's copy is a person of the folder.
TEST(ReadNetscape3, CopiesAreKnownByNumberAndAddress) {
    const std::string page =
        "<DL>\n"
        "<DT><A HREF=\"mailto:ada@example.org\" ALIASID=0>Ada</A>\n"
        "<DT><A HREF=\"mailto:ben@example.org\" ALIASID=0>Ben</A>\n"
        "<DT><H3>Rowers</H3><DL>\n"
        "<DT><A HREF=\"mailto:Ben@example.org\" ALIASOF=0 NICKNAME=b>Benny</A><DD>rows\n"
        "<DT><A HREF=\"mailto:ada@example.org\" ALIASOF=99>Ada</A>\n"
        "<DT><A HREF=\"mailto:\" ALIASOF=0>Ada</A>\n"
        "<DT><A HREF=\"mailto:cy@example.org\" ALIASOF=0>Cy</A>\n"
        "</DL></DL>\n"
        "<DT><A HREF=\"mailto:di@example.org\" ALIASOF=0>Di</A>\n";
    EXPECT_EQ(Read(page),
              "person\nFN:Ada\nN:;Ada;;;\nEMAIL:ada@example.org\n"
              "person\nFN:Ben\nN:;Ben;;;\nEMAIL:ben@example.org\n"
              "list\nFN:Rowers\n"
              "MEMBER:x-orvik-line:3\nX-ORVIK-NETSCAPE3-copy-name:Benny\n"
              "X-ORVIK-NETSCAPE3-copy-nickname:b\nX-ORVIK-NETSCAPE3-copy-note:rows\n"
              "MEMBER:x-orvik-line:2\nMEMBER:x-orvik-line:2\nMEMBER:x-orvik-line:8\n"
              "person\nFN:Cy\nN:;Cy;;;\nEMAIL:cy@example.org\nX-ORVIK-NETSCAPE3-ALIASOF:0\n"
              "person\nFN:Di\nN:;Di;;;\nEMAIL:di@example.org\nX-ORVIK-NETSCAPE3-ALIASOF:0\n");
    EXPECT_EQ(ToldOf(page),
              "doubtful 8 ALIASOF: 0: is not in these files\n"
              "doubtful 10 ALIASOF: 0: is not in these files\n");
}

TEST(ReadNetscape3, ForgivesWhatIsMissing) {
    const struct {
        std::string Page;
        std::string Expected;
        std::string Told;
    } rows[] = {
        {"<dl><dt><a nickname=al href=mailto:al@b>Al<dd>x<dd>y<dt><a href=mailto:bo@b>Bo",
         "person\nFN:Al\nN:;Al;;;\nNICKNAME:al\nEMAIL:al@b\nNOTE:x\\x0Ay\n"
         "person\nFN:Bo\nN:;Bo;;;\nEMAIL:bo@b\n",
         ""},
        {"<DL><A HREF=\"mailto:al@b\">Al</A>\r<DD><A HREF=\"http://x\">page</A>\r",
         "person\nFN:Al\nN:;Al;;;\nEMAIL:al@b\nNOTE:<A HREF=\"http://x\">page</A>\n",
         ""},
        {"<DL><DT>Al\n<DT><A HREF=\"http://example.org\" ADD_DATE=\"5\">Page</A>",
         "person\nFN:Al\nN:;Al;;;\n"
         "person\nFN:Page\nN:;Page;;;\nURL:http://example.org\nX-ORVIK-NETSCAPE3-ADD-DATE;"
         "X-ORVIK-HEADER=ADD_DATE:5\n",
         ""},
        {"<DL><DT><A HREF=\"mailto:al@b\">Al</A> and\nmore",
         "person\nFN:Al\nN:;Al;;;\nEMAIL:al@b\n",
         "skipped 1 : and: belongs to no record\n"},
        {"<DL><DT><H3>In</H3><DL>\n<DT><A HREF=\"mailto:al@b\">Al</A>\n",
         "list\nFN:In\nMEMBER:x-orvik-line:2\nperson\nFN:Al\nN:;Al;;;\nEMAIL:al@b\n",
         "doubtful 1 H3: : has no end\n"},
        {"<DL><DT><H3>In</H3><DL><DT><A HREF=\"mailto:al@b\">Al</A></DL></DL></DL>",
         "list\nFN:In\nMEMBER:cn=Al,mail=al@b\nperson\nFN:Al\nN:;Al;;;\nEMAIL:al@b\n",
         ""},
        {"<DD>x<DL></DL>", "", "skipped 1 : x: belongs to no record\n"},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Read(row.Page), row.Expected) << row.Page;
        EXPECT_EQ(ToldOf(row.Page), row.Told) << row.Page;
    }
}

TEST(ReadNetscape3, LettersAreThoseOfTheFile) {
    const std::string page =
        "<DL>\r<DT><A HREF=\"mailto:j@b\" NICKNAME=\"j\xF6\">J\xF6rg &eacute; M\xFCller</A>\r"
        "<DD>gr\xFC\xDF\r";
    const ReadBook read(ReadNetscape3, page, "windows-1252");
    EXPECT_EQ(Shown(read.book),
              "person\nFN:J\xC3\xB6rg \xC3\xA9 M\xC3\xBCller\n"
              "N:M\xC3\xBCller;J\xC3\xB6rg \xC3\xA9;;;\nNICKNAME:j\xC3\xB6\nEMAIL:j@b\n"
              "NOTE:gr\xC3\xBC\xC3\x9F\n");
    const ReadBook guessed(ReadNetscape3, page);
    EXPECT_NE(guessed.sentence.find("\"J\xC3\xB6rg"), std::string::npos) << guessed.sentence;
}

TEST(ReadNetscape3, TakesLinearTime) {
    constexpr std::size_t kMany = 100000;
    for (const std::string& piece : {std::string("<DL>"),
                                     std::string("<DT><H3>"),
                                     std::string("<A HREF=\""),
                                     std::string("<!--"),
                                     std::string("<!DOCTYPE"),
                                     std::string("&amp"),
                                     std::string("<DD>x"),
                                     std::string("<DT><A ALIASOF=1 HREF=mailto:a@b>x")}) {
        std::string page = "<DL><DT><H3>In</H3><DL><DT><A ALIASID=1 HREF=mailto:a@b>";
        for (std::size_t i = 0; i < kMany; ++i) {
            page += piece;
        }
        EXPECT_GE(ReadBook(ReadNetscape3, page).book.Contacts.size(), 2U) << piece;
    }
}

}  // namespace
}  // namespace orvik::book
