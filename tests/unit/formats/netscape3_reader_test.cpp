#include "formats/netscape3_reader.h"

#include <string>

#include "formats/netscape3_writer.h"
#include "unit/generated_texts.h"
#include "unit/literal_text.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::Fragments;
using test::LiteralText;

struct Row {
    const char* name;
    std::string_view html;
    std::string_view separator;
    std::string list;
};

class ReadNetscape3Test : public testing::TestWithParam<Row> {};

TEST_P(ReadNetscape3Test, Row) {
    EXPECT_EQ(ReadNetscape3(GetParam().html, GetParam().separator), GetParam().list);
}

std::string NameOf(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Link,
    ReadNetscape3Test,
    testing::Values(Row{"WithAlias_IsOneEntry",
                        "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>",
                        ",",
                        "\"A1\" Al,"},
                    Row{"WithCr_GetsNoLf",
                        "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>",
                        "\r",
                        "\"A1\" Al\r"},
                    Row{"WithAliasAndNickname_GivesItsText",
                        "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\" NICKNAME=\"nick\">Al</A>",
                        ",",
                        "\"A1\" Al,"},
                    Row{"WithNicknameOnly_GivesItsText",
                        "x<DT><A HREF=\"mailto:A1\" NICKNAME=\"nick\">Al</A>",
                        ",",
                        "\"A1\" Al,"},
                    Row{"WithNeither_LosesFirstCharacter",
                        "x<DT><A HREF=\"mailto:A1\">Al</A>",
                        ",",
                        "\"A1\" l,"},
                    Row{"WithNeitherAndNoText_RunsBehindItsEnd",
                        "x<DT><A HREF=\"mailto:A1\"></A><B>b</A>",
                        ",",
                        "\"A1\" /A><B>b,"},
                    Row{"WithEmptyAlias_TakesTextBehindNextTag",
                        "x<DT><A HREF=\"mailto:A1\" ALIASID=\"\">Al</A><I X=\"y\">Bo</A>",
                        ",",
                        "\"A1\" Bo,"},
                    Row{"WithEmptyNickname_TakesItsText",
                        "x<DT><A HREF=\"mailto:A1\" NICKNAME=\"\">Al</A>",
                        ",",
                        "\"A1\" Al,"},
                    Row{"WithoutAddress_HasEmptyQuotes",
                        "x<DT><A HREF=\"mailto:\" ALIASID=\"0\">Al</A>",
                        ",",
                        "\"\" Al,"},
                    Row{"WithoutText_HasNone",
                        "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\"></A>",
                        ",",
                        "\"A1\" ,"},
                    Row{"Two_ComeInOrder",
                        "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>\r\n<DD>\r\n\r\n"
                        "    <DT><A HREF=\"mailto:A2\" ALIASID=\"1\">Bo</A>",
                        ",",
                        "\"A1\" Al,\"A2\" Bo,"},
                    Row{"AtSecondCharacter_IsRead", "x<DT><A HREF=\"mailto:A1\"", ",", "\"A1\" "},
                    Row{"AtFirstCharacter_LosesItsAddress",
                        "<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>",
                        ",",
                        "Al,"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Page,
    ReadNetscape3Test,
    testing::Values(
        Row{"Empty_GivesNothing", "", ",", ""},
        Row{"OneCharacter_GivesNothing", "<", ",", ""},
        Row{"WithoutLinks_GivesNothing", "<HTML><P>A1</P>", ",", ""},
        Row{"LowerCaseTag_IsNotRead", "x<dt><a href=\"mailto:A1\" aliasid=\"0\" >Al</a>", ",", ""},
        Row{"LowerCaseLinkEnd_IsNoEnd", "x ALIASID=\"0\">Al</a>b</A>", ",", "Al</a>b,"},
        Row{"OtherTagEndingInQuote_GivesItsTextToo", "<BODY X=\"y\">abc</A>", ",", "bc,"},
        Row{"QuoteAndBracketAtStart_AreRead", "\">abc</A>", ",", "bc,"},
        Row{"OpenAddress_GoesToTheEnd", "x<DT><A HREF=\"mailto:A1", ",", "\"A1\" "},
        Row{"NothingBehindMailto_GivesEmptyQuotes", "x<DT><A HREF=\"mailto:", ",", "\"\" "},
        Row{"OpenTag_GivesSeparatorOnly", "x ALIASID=\"0 ", ",", ","},
        Row{"KeyAtEnd_GivesSeparatorOnly", "x ALIASID=\"", ",", ","},
        Row{"OpenLinkText_GoesToTheEnd", "x ALIASID=\"0\">Al</", ",", "Al</,"},
        Row{"TagEndAtEnd_GivesSeparatorOnly", "x\">", ",", ","},
        Row{"ZeroByte_IsCopied", {"x ALIASID=\"0\">A\0l</A>", 21}, ",", {"A\0l,", 4}}),
    NameOf);

// The reader once more, slow and literal. What nothing ends goes to the end of the text.
std::string ReadLiterally(std::string_view html, std::string_view separator) {
    const LiteralText what(html);
    std::string output;
    const auto copy_link_text = [&](std::size_t& i) {
        while (what(i, 4) != "</A>" && i <= what.size()) {
            output += what(i);
            ++i;
        }
        output += separator;
    };
    for (std::size_t i = 2; i <= what.size(); ++i) {
        if (what(i, 20) == "<DT><A HREF=\"mailto:") {
            i += 20;
            output += "\"";
            while (what(i) != "\"" && i <= what.size()) {
                output += what(i);
                ++i;
            }
            output += "\" ";
        } else if (what(i, 9) == "ALIASID=\"" || what(i, 10) == "NICKNAME=\"") {
            i += 10;
            while (what(i, 2) != "\">" && i <= what.size()) {
                ++i;
            }
            i += 2;
            copy_link_text(i);
        } else if (i > 1 && what(i - 1, 2) == "\">") {
            i += 2;
            copy_link_text(i);
        } else if (i > what.size()) {
            break;
        }
    }
    return output;
}

void CompareReads(const std::string& text) {
    for (const std::string_view separator : {"\r", ","}) {
        ASSERT_EQ(ReadNetscape3(text, separator), ReadLiterally(text, separator))
            << testing::PrintToString(text);
    }
}

const Fragments& PageFragments() {
    static const Fragments fragments = {
        "<DT><A HREF=\"mailto:", "ALIASID=\"", "NICKNAME=\"", "\"", ">", "</A>", "<", "A"};
    return fragments;
}

TEST(ReadNetscape3, EveryShortText_EqualsLiteralReader) {
    ForEveryText(PageFragments(), 5, CompareReads);
}

TEST(ReadNetscape3, EveryTextOfSevenKeysAndEnds_EqualsLiteralReader) {
    ForEveryText({"ALIASID=\"", "\"", ">", "</A>", "<"}, 7, CompareReads);
}

TEST(ReadNetscape3, RandomLongTexts_EqualLiteralReader) {
    Fragments fragments = PageFragments();
    for (const std::string_view more : {"\">",
                                        " ",
                                        "x",
                                        "\r\n<DD>\r\n",
                                        "<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>",
                                        "<DT><A HREF=\"mailto:A1\">Al</A>",
                                        "ALIASID=\"\">",
                                        "N",
                                        "\xE9"}) {
        fragments.push_back(more);
    }
    ForRandomTexts(fragments, 60, 4000, CompareReads);
}

TEST(ReadNetscape3, WrittenBook_ReadsBackEachEntry) {
    EXPECT_EQ(ReadNetscape3(WriteNetscape3("A 1\r\n\r\nA\"2\r\n-nick-\r\nAl\r\nBo\r\n\r\n"), ","),
              "\"A_1\" Al,\"\" Bo,\"A'2\" ,");
}

}  // namespace
}  // namespace orvik
