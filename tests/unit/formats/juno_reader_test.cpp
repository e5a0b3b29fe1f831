#include "formats/juno_reader.h"

#include <string>

#include "formats/juno_writer.h"
#include "unit/generated_texts.h"
#include "unit/literal_text.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::LiteralText;

struct Row {
    const char* name;
    std::string_view juno;
    std::string list;
};

class ReadJunoTest : public testing::TestWithParam<Row> {};

TEST_P(ReadJunoTest, Row) {
    EXPECT_EQ(ReadJuno(GetParam().juno), GetParam().list);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    ReadJunoTest,
    testing::Values(
        Row{"NameAndEmail_AreOneEntry",
            "\r\nName:Al\r\nEmail:A1\r\nAlias:Al\r\n",
            "\"Al\" <A1>\r\n"},
        Row{"EmailBeforeName_EndsTheEntryFirst", "\r\nEmail:A1\r\nName:Al\r\n", "<A1>\r\n\"Al\" "},
        Row{"NameAtStartOfText_IsNotRead", "Name:Al\r\nEmail:A1\r\n", "<A1>\r\n"},
        Row{"EmptyValues_AreRead", "\r\nName:\r\nEmail:\r\n", "\"\" <>\r\n"},
        Row{"BlankBehindColon_IsKept", "\r\nName: Al\r\n", "\" Al\" "},
        Row{"OtherKeys_AreSkipped", "\r\nType:Entry\r\nAlias:Al\r\nNames:x\r\n", ""},
        Row{"OtherCase_IsNotRead", "\r\nname:Al\r\nEMAIL:A1\r\n", ""},
        Row{"KeyInsideLine_IsNotRead", "\r\n Name:Al\r\n", ""},
        Row{"KeyBehindLoneLf_IsNotRead", "\nName:Al\n", ""},
        Row{"NameOnUnendedLastLine_IsReadWhole", "\r\nName:Al", "\"Al\" "},
        Row{"EmailOnUnendedLastLine_IsReadWhole", "\r\nEmail:A1", "<A1>\r\n"},
        Row{"KeyAtEndOfText_HasEmptyValue", "\r\nEmail:", "<>\r\n"},
        Row{"LoneCrAndLfInValue_AreCopied", "\r\nEmail:A\r1\n2\r\n", "<A\r1\n2>\r\n"},
        Row{"QuoteInValue_IsCopied", "\r\nName:A\"l\r\n", "\"A\"l\" "},
        Row{"EmptyText_GivesNothing", "", ""},
        Row{"LineBreakOnly_GivesNothing", "\r\n", ""}),
    [](const auto& row) { return row.param.name; });

// The reader once more, slow and literal. A value that nothing ends goes to the end of the text.
std::string ReadLiterally(std::string_view juno) {
    const LiteralText text(juno);
    std::string output;
    const auto copy_value = [&](std::size_t& i) {
        while (text(i, 2) != "\r\n" && i <= text.size()) {
            output += text(i);
            ++i;
        }
    };
    for (std::size_t i = 1; i <= text.size(); ++i) {
        if (text(i, 7) == "\r\nName:") {
            i += 7;
            output += "\"";
            copy_value(i);
            output += "\" ";
            --i;
        } else if (text(i, 8) == "\r\nEmail:") {
            i += 8;
            output += "<";
            copy_value(i);
            output += ">\r\n";
            --i;
        } else if (i > text.size()) {
            break;
        }
    }
    return output;
}

void CompareReads(const std::string& text) {
    ASSERT_EQ(ReadJuno(text), ReadLiterally(text)) << testing::PrintToString(text);
}

TEST(ReadJuno, EveryShortText_EqualsLiteralReader) {
    ForEveryText({"a", "\r", "\n", "\r\n", "\r\nName:", "\r\nEmail:", "Name:"}, 6, CompareReads);
}

TEST(ReadJuno, RandomLongTexts_EqualLiteralReader) {
    ForRandomTexts({"a",
                    "\r",
                    "\n",
                    "\r\n",
                    "\r\nName:",
                    "\r\nEmail:",
                    "Email:",
                    "\r\nAlias:Al",
                    "\r\nType:Entry\r\n",
                    "\"",
                    "\xE9"},
                   60,
                   4000,
                   CompareReads);
}

TEST(ReadJuno, WrittenBook_ReadsBackEachEntry) {
    class NoProgress : public Progress {
        void Percent(int /*percent*/) override {}
        void Record() override {}
    } progress;
    EXPECT_EQ(ReadJuno(WriteJuno("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n", "\r", progress)),
              "\"Al\" <A1>\r\n\"\" <A2>\r\n");
}

}  // namespace
}  // namespace orvik
