#include "formats/endings.h"

namespace orvik {
namespace {

struct Row {
    const char* name;
    Format format;
    Saving saving;
};

class EndingsTest : public testing::TestWithParam<Row> {};

TEST_P(EndingsTest, Name_StandsForItsFormat) {
    const Ending* const ending = FindEnding(GetParam().name);
    ASSERT_NE(ending, nullptr);
    EXPECT_EQ(ending->What, GetParam().format);
    EXPECT_EQ(SavingOf(GetParam().name), GetParam().saving);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    EndingsTest,
    testing::Values(Row{"abook.html", Format::Netscape3, Saving::Adds},
                    Row{"abook.HTM", Format::Netscape3, Saving::Adds},
                    Row{"BOOK.LDIF", Format::Netscape4, Saving::Replaces},
                    Row{"home/list.txt", Format::TextList, Saving::Replaces},
                    Row{"home/nndbase.txt", Format::TextList, Saving::Replaces},
                    Row{"book.csv", Format::Csv, Saving::Never},
                    Row{"book.abx", Format::WordPerfect, Saving::Never},
                    Row{"book.nv", Format::Juno, Saving::Adds},
                    Row{"nv", Format::Juno, Saving::Adds},
                    Row{"list.pml", Format::Pegasus, Saving::Adds},
                    Row{"any.xtr", Format::AnyFile, Saving::Never}));

TEST(FindEnding, UnknownEnding_IsNone) {
    for (const char* const name : {"", "book", "book.ldi", "book.htmx", "book.txt~"}) {
        EXPECT_EQ(FindEnding(name), nullptr) << name;
        EXPECT_EQ(SavingOf(name), Saving::Never) << name;
    }
}

TEST(IsAliasFile, OnlyTheOneFile_InAnyFolderAndCase) {
    EXPECT_TRUE(IsAliasFile("nndbase.txt"));
    EXPECT_TRUE(IsAliasFile("home/NNDBASE.TXT"));
    EXPECT_FALSE(IsAliasFile("home/list.txt"));
}

}  // namespace
}  // namespace orvik
