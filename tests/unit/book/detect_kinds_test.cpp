#include <string>

#include <gtest/gtest.h>

#include "book/detect.h"

namespace orvik::book {
namespace {

struct Row {
    std::string Name;
    std::string Bytes;
    Format Expected;
    std::string Evidence;
};

void Check(const Row& row) {
    const Source source(row.Name, row.Bytes);
    const Detected detected = Detect(source);
    EXPECT_EQ(detected.Form, row.Expected) << testing::PrintToString(row.Bytes);
    EXPECT_EQ(detected.Evidence, row.Evidence) << testing::PrintToString(row.Bytes);
}

TEST(DetectKinds, PagesAreAddressBooksByTheirTypeOrTheirLinks) {
    const Row rows[] = {
        {"x",
         "<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n<DL><p>\r\n</DL><p>\r\n",
         Format::Netscape3,
         "line 1 names the format"},
        {"x.vcf",
         "\r\n<html>\r<!doctype netscape-addressbook-FILE-1>\rBEGIN:VCARD\r",
         Format::Netscape3,
         "line 3 names the format"},
        {"x",
         "<TITLE>Al</TITLE>\n<DL><p>\n<DT><A HREF=\"mailto:al@example.org\">Al</A>\n</DL>",
         Format::Netscape3,
         "line 3 links an address in a list"},
        {"x",
         "<dl><dt><a name=x href=MAILTO:al@example.org>Al",
         Format::Netscape3,
         "line 1 links an address in a list"},
        {"address.htm",
         "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<DL><DT><A HREF=\"http://example.org\">x</A></DL>",
         Format::None,
         "a file of bookmarks"},
        {"address.htm",
         "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<DL><p>\n<DT><A HREF=\"http://example.org\">x</A>\n"
         "<DT><A HREF=\"mailto:al@example.org\">Al</A>\n</DL>",
         Format::None,
         "a file of bookmarks"},
        {"x",
         "<!-- saved -->\n<!doctype netscape-BOOKMARK-file-1>\n<DL><DT><A HREF=mailto:a@b>Al",
         Format::None,
         "a file of bookmarks"},
        {"x",
         "<!DOCTYPE NETSCAPE-Addressbook-file-1>\n<DL><DT><A HREF=\"http://example.org\">x</A>\n"
         "<DT><A HREF=\"mailto:al@example.org\">Al</A>\n</DL>",
         Format::Netscape3,
         "line 1 names the format"},
        {"address.htm",
         "<HTML><BODY><A HREF=\"mailto:al@example.org\">Al</A></BODY></HTML>",
         Format::None,
         "an HTML page"},
        {"x",
         "Dear Al,\n<DL><DT><A HREF=\"mailto:al@example.org\">Al</A>\n",
         Format::None,
         "a text"},
    };
    for (const Row& row : rows) {
        Check(row);
    }
}

TEST(DetectKinds, BlocksOfKeysAreKnownByTheirKeys) {
    const Row rows[] = {
        {"x", "\r\n\r\nType:Entry\r\nName:Al\r\n", Format::Juno, "line 3 begins an entry"},
        {"x", "type: mlist\rname: Al\r", Format::Juno, "line 1 begins an entry"},
        {"x", "Type:Version\nVersion:AB 0.3.0\n", Format::Juno, "line 1 begins an entry"},
        {"x.NV", "Email:al@example.org\nAlias:al\n", Format::Juno, "line 1 begins an entry"},
        {"x", "Email:al@example.org\nAlias:al\n", Format::None, "a text"},
        {"x.nv", "Name:Al\nDeleted:0\n", Format::None, "a text"},
        {"x", "Type:Entry\n\nName:Al\n", Format::None, "a text"},
        {"x", "Type:Letter\nName:Al\n", Format::None, "a text"},
        {"x",
         "BEGIN:VCARD\nType:Entry\nName:Al\nEND:VCARD\n",
         Format::VCard,
         "line 1 begins a card"},
        {"x",
         "Name: Doe, Jo\nLocn: R\nAddr: PO jo@example.org\n",
         Format::CcMail,
         "line 1 begins an entry"},
        {"x", "Name: Jo\nAddr:\nName: Al\nCmts:\n", Format::CcMail, "line 1 begins an entry"},
        {"x", "Name: Jo\nCmts: x\n", Format::None, "a text"},
        {"x", "Name: Jo\nAddr: jo@example.org\nand\nthree\nlines\n", Format::None, "a text"},
        {"x", "Name: Jo\nPhone: 1\nAddr: jo@example.org\n", Format::None, "a text"},
    };
    for (const Row& row : rows) {
        Check(row);
    }
}

TEST(DetectKinds, TheEndingTellsTablesOfWordPerfect) {
    const std::string table = "\"Type\",\"Name\",\"E-mail\"\r\n\"P\",\"Al\",\"al@example.org\"\r\n";
    const std::string bare = "A,B,C,D,E,F\r\n1,Al,3,4,5,al@example.org,\r\n";
    const Row rows[] = {
        {"x",
         ":::TAGMAP:::0FFE0003:***,3001001E:Name\r\nU,Al\r\n",
         Format::WordPerfect,
         "line 1 names columns by tags"},
        {"x",
         "\":::tagmap:::0FFE0003:***\"\t\"3001001E:Name\"\n",
         Format::WordPerfect,
         "line 1 names columns by tags"},
        {"x.ABX", table, Format::WordPerfect, "line 1 names columns"},
        {"x.csv", table, Format::Csv, "line 1 names columns"},
        {"x.abx", bare, Format::WordPerfect, "column 6 holds addresses"},
        {"x.csv", bare, Format::None, "a text"},
        {"x.abx",
         "al@example.org,Al,Berg\nben@example.org,Ben,Berg\n",
         Format::Csv,
         "line 1 begins rows with addresses"},
        {"x.abx", "Dear Al,\nwhere are you?\n", Format::None, "a text"},
        {"x.abx", "", Format::None, "an empty file"},
    };
    for (const Row& row : rows) {
        Check(row);
    }
}

TEST(DetectKinds, ListsAreNothingButAddresses) {
    const std::string begins = "line 1 begins a list of addresses";
    const Row rows[] = {
        {"x", "\"Al\" <al@example.org>\r\nben@example.org\r\n", Format::PlainList, begins},
        {"x", "al@example.org", Format::PlainList, begins},
        {"x", "Al <al@example.org>\rben@example.org \"Ben\"\r", Format::PlainList, begins},
        {"x", "<al@example.org> Al\nben@example.org (Ben)\n", Format::PlainList, begins},
        {"x", "Berg, Al <al@example.org>; ben@example.org,\n", Format::PlainList, begins},
        {"x", "\"al@example.org\" <Al Berg>\n", Format::PlainList, begins},
        {"x", "\"R&D: <x>\" <al@example.org>\n", Format::PlainList, begins},
        {"x", "al@example.org Al Berg\n", Format::PlainList, begins},
        {"x",
         "# ours\nal@example.org\nben@example.org\ncy@example.org\n",
         Format::PlainList,
         "line 2 begins a list of addresses"},
        {"x",
         "# ours\n#\nal@example.org\n",
         Format::PlainList,
         "line 3 begins a list of addresses"},
        {"x", "ours\nal@example.org\nben@example.org\n", Format::None, "a text"},
        {"x", "# ours\n#\n", Format::None, "a text"},
        {"x",
         "E-mail\nal@example.org\nben@example.org\ncy@example.org\ndi@example.org\n",
         Format::Csv,
         "line 1 names columns"},
        {"x",
         "From: Al <al@example.org>\nTo: Ben <ben@example.org>\nCc: cy@example.org\n",
         Format::None,
         "a text"},
        {"x",
         "Please write to al@example.org\nor else to ben@example.org\n",
         Format::None,
         "a text"},
        {"x",
         "Dear Al,\nplease do write to all of us, al@example.org\nor again to ben@example.org\n",
         Format::None,
         "a text"},
        {"x",
         "to = \"al@example.org\";\nfrom = <ben@example.org>;\n#include <cy@example.org>\n",
         Format::None,
         "a text"},
        {"x",
         "alias al Al Berg <al@example.org>\nalias ben ben@example.org\n",
         Format::Mutt,
         "line 1 begins an alias"},
        {"x", "Al <>\nBen <ben at example.org>\n", Format::None, "a text"},
        {"x", ",,,\n;;;\n", Format::None, "a text"},
        {"x",
         "# friends\n\"Abbott, Al\" <al@example.org>\n\"Berg, Bo\" <bo@example.org>\n",
         Format::PlainList,
         "line 2 begins a list of addresses"},
        {"x",
         "#comment\n\"Al\",\"al@example.org,a@example.net\",\"555\"\n\"Bo\",\"b@example.org\","
         "\"\"\n",
         Format::Csv,
         "line 2 begins rows with addresses"},
        {"x", "\n\n\n", Format::None, "a text"},
    };
    for (const Row& row : rows) {
        Check(row);
    }
}

TEST(DetectKinds, TablesMayEndWithGroups) {
    const Row rows[] = {
        {"x",
         "al@example.org,Al,Berg,al,,Rowers,Coxes\nben@example.org,Ben,Berg,,,Rowers\n",
         Format::Csv,
         "line 1 begins rows with addresses"},
        {"x",
         "Al,al@example.org,Rowers\nBen,ben@example.org\n",
         Format::Csv,
         "line 1 begins rows with addresses"},
        {"x", "Al,al@example.org,x\nBen,Berg,ben@example.org\n", Format::None, "a text"},
        {"x", "Al,al@example.org,x,ben@example.org\nBen,ben@example.org\n", Format::None, "a text"},
    };
    for (const Row& row : rows) {
        Check(row);
    }
}

TEST(DetectKinds, OneRowIsATableWhereItIsCalledOne) {
    const std::string row = "ada@example.org,Ada,Abbott\n";
    const std::string found = "line 1 begins rows with addresses";
    const Row rows[] = {
        {"one.csv", row, Format::Csv, found},
        {"ONE.TSV", "Ada Abbott\tada@example.org\t+1 555 0100", Format::Csv, found},
        {"one.txt", row, Format::None, "a text"},
        {"one.csv", "Ada,Abbott,+1 555 0100\n", Format::None, "a text"},
        {"one.csv", "Dear Ada, please write to ada@example.org\n", Format::None, "a text"},
    };
    for (const Row& one : rows) {
        Check(one);
    }
}

}  // namespace
}  // namespace orvik::book
