#include "files/netscape3_merge.h"

#include <string>

#include "formats/netscape3_writer.h"
#include "unit/generated_texts.h"
#include "unit/literal_text.h"

namespace orvik {
namespace {

using test::ForEveryText;
using test::ForRandomTexts;
using test::LiteralText;

using Merged = std::optional<std::string>;

const std::string& NewBook() {
    static const std::string book = std::string(kNetscape3HeaderLength, 'h') + "NEW";
    return book;
}

struct Row {
    const char* name;
    std::string_view old_book;
    Merged merged;
};

class MergeNetscape3Test : public testing::TestWithParam<Row> {};

TEST_P(MergeNetscape3Test, Row) {
    EXPECT_EQ(MergeNetscape3(GetParam().old_book, NewBook()), GetParam().merged);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    MergeNetscape3Test,
    testing::Values(Row{"Book_IsCutOneCharacterBehindItsLastMark",
                        "a<DD>b<DD>\r\n</DL><p>",
                        "a<DD>b<DD>\r\r\nNEW"},
                    Row{"AnyCase_Counts", "a<dD>\r\n", "a<dD>\r\r\nNEW"},
                    Row{"MarkAtStart_Counts", "<DD>x", "<DD>x\r\nNEW"},
                    Row{"MarkAtEnd_IsNoMark", "a<DD>", std::nullopt},
                    Row{"MarkAtEnd_LeavesTheOneBefore", "<dd>a<DD>", "<dd>a\r\nNEW"},
                    Row{"NoMark_IsNoBook", "<DL><p>\r\n</DL><p>\r\n", std::nullopt},
                    Row{"EmptyText_IsNoBook", "", std::nullopt},
                    Row{"BracketOnly_IsNoBook", ">", std::nullopt},
                    Row{"MarkCutShort_IsNoBook", "DD>x", std::nullopt}),
    [](const auto& row) { return row.param.name; });

TEST(MergeNetscape3, WrittenBooks_AreJoinedLessTheSecondHeader) {
    const std::string first = WriteNetscape3("A1\r\n-nick-\r\nAl\r\n");
    const std::string second = WriteNetscape3("A2\r\n-nick-\r\nBo\r\n");
    const Merged merged = MergeNetscape3(first, second);
    ASSERT_TRUE(merged);
    EXPECT_EQ(*merged,
              first.substr(0, first.rfind("<DD>") + 5) +
                  "\r\n\r\n    <DT><A HREF=\"mailto:A2\" ALIASID=\"0\">Bo</A>\r\n<DD>\r\n"
                  "\r\n</DL><p>");
}

TEST(MergeNetscape3, NewBookOfHeaderOnly_AddsALineBreak) {
    EXPECT_EQ(MergeNetscape3("<DD>\r\n", std::string(kNetscape3HeaderLength, 'h')), "<DD>\r\r\n");
}

std::string InUpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c == 'd') {
            c = 'D';
        }
    }
    return upper;
}

// The merge once more, slow and literal.
Merged MergeLiterally(std::string_view old_book, std::string_view new_book) {
    const LiteralText old_text(old_book);
    const LiteralText new_text(new_book);
    for (std::size_t i = old_text.size(); i > 0; --i) {
        if (i > 4 && InUpperCase(old_text(i - 4, 4)) == "<DD>") {
            std::string merged(old_text(1, i));
            merged += "\r\n";
            merged += new_text(199, new_text.size());
            return merged;
        }
    }
    return std::nullopt;
}

void CompareMerges(const std::string& text) {
    ASSERT_EQ(MergeNetscape3(text, NewBook()), MergeLiterally(text, NewBook()))
        << testing::PrintToString(text);
}

TEST(MergeNetscape3, EveryShortText_EqualsLiteralMerge) {
    ForEveryText({"<DD>", "<dd", "D", "<", ">", "x"}, 6, CompareMerges);
}

TEST(MergeNetscape3, RandomLongTexts_EqualLiteralMerge) {
    ForRandomTexts({"<", "D", "d", ">", "x", "<DD", "\r\n", "<dD>"}, 40, 4000, CompareMerges);
}

}  // namespace
}  // namespace orvik
