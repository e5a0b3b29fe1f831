#include "files/something_else.h"

#include <fstream>
#include <iterator>
#include <string>

#include "unit/generated_texts.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

struct Row {
    const char* name;
    std::string_view file;
    std::string_view what;
};

class PlainlySomethingElseTest : public testing::TestWithParam<Row> {};

TEST_P(PlainlySomethingElseTest, Row) {
    EXPECT_EQ(PlainlySomethingElse(GetParam().file), GetParam().what);
}

std::string NameOf(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Known,
    PlainlySomethingElseTest,
    testing::Values(
        Row{"Png", "\x89PNG\r\n\x1A\n....", "a PNG picture"},
        Row{"Jpeg", "\xFF\xD8\xFF\xE0..JFIF", "a JPEG picture"},
        Row{"Gif87", "GIF87a....", "a GIF picture"},
        Row{"Gif89", "GIF89a....", "a GIF picture"},
        Row{"Pdf", "%PDF-1.4\n", "a PDF document"},
        Row{"Zip", "PK\x03\x04....", "a ZIP archive"},
        Row{"Gzip", "\x1F\x8B\x08....", "a gzip archive"},
        Row{"VCard", "BEGIN:VCARD\r\nVERSION:3.0\r\n", "a vCard"},
        Row{"VCardInSmallLetters", "begin:vcard\nfn:Al\n", "a vCard"},
        Row{"VCardBehindAByteOrderMark",
            "\xEF\xBB\xBF"
            "BEGIN:VCARD\n",
            "a vCard"},
        Row{"VCardBehindEmptyLines", "\r\n\r\n \tBEGIN:VCARD\n", "a vCard"},
        Row{"Calendar", "BEGIN:VCALENDAR\r\n", "a calendar"},
        Row{"MailFolder",
            "From a@b Mon Mar  2 09:15:01 1998\nReturn-Path: <a@b>\n",
            "a mail folder"},
        Row{"MailFolderWithCrLf", "From - Mon Mar  2 1998\r\nX-Status: 0\r\n", "a mail folder"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Unknown,
    PlainlySomethingElseTest,
    testing::Values(Row{"Nothing", "", ""},
                    Row{"Blanks", " \r\n \t", ""},
                    Row{"ByteOrderMark", "\xEF\xBB\xBF", ""},
                    Row{"List", "\"Al\" <a@b>\r\n", ""},
                    Row{"PartOfASignature", "\x89PNG\r\n", ""},
                    Row{"SignatureInside", "x %PDF-1.4", ""},
                    Row{"EntryCalledFrom", "From me <a@b>\r\nTo you <c@d>\r\n", ""},
                    Row{"EntryCalledFromAlone", "From me <a@b>", ""},
                    Row{"FromBeforeAnEmptyLine", "From me\n\nTo: you\n", ""},
                    Row{"FromBeforeAColon", "From me\n: x\n", ""},
                    Row{"FromBeforeTheEnd", "From me\nTo", ""},
                    Row{"Ldif", "dn: cn=Al,mail=a@b\r\ncn: Al\r\n", ""}),
    NameOf);

TEST(PlainlySomethingElse, MailFolderOfTheTests_IsOne) {
    std::ifstream file(std::string(ORVIK_TEST_DATA) + "/folder.mbox", std::ios::binary);
    const std::string mails{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(PlainlySomethingElse(mails), "a mail folder");
}

TEST(PlainlySomethingElse, BookOfOurs_IsNone) {
    EXPECT_EQ(PlainlySomethingElse(test::LdifRecord("a@b", "From")), "");
    EXPECT_EQ(PlainlySomethingElse(test::kNetscape3Head), "");
    EXPECT_EQ(PlainlySomethingElse("\r\n\r\n" + test::JunoRecord("a@b", "From")), "");
    EXPECT_EQ(PlainlySomethingElse("h\r\n" + test::CsvLine("From", "a@b")), "");
}

// Whatever stands in a file, it is looked at up to its second line.
TEST(PlainlySomethingElse, AnyBeginning_IsTaken) {
    test::ForEveryText(
        {"From ", "\n", ":", "a", "\xEF\xBB\xBF", "begin:vcard"}, 4, [](const std::string& text) {
            const std::string_view what = PlainlySomethingElse(text);
            EXPECT_TRUE(what.empty() || what == "a vCard" || what == "a mail folder") << text;
        });
}

}  // namespace
}  // namespace orvik
