#include <string>

#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::Items;
using test::WriteFile;
using testing::_;
using testing::AllOf;
using testing::Field;
using testing::Ref;
using testing::Return;

class MergeTest : public test::CommandTest {
 protected:
    void Merge(std::string_view name, std::string_view contents) {
        WriteFile(folder_.Name(name), contents);
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(folder_.Name(name)));
        form1.mnuMerge_Click();
    }
    void ExpectDialog(const std::string& preset) {
        EXPECT_CALL(platform,
                    ShowFileDialog(AllOf(
                        Field(&FileDialog::Kind, DialogKind::Open),
                        Field(&FileDialog::Title, "Open file for merging"),
                        Field(&FileDialog::Filter,
                              "Netscape 4.x|*.ldif|Netscape 3.0|*.htm|Internet Explorer 4.x|*.csv|"
                              "Juno|*.nv|WordPerfect 8|*.abx|Text files|*.txt|All files|*.*"),
                        Field(&FileDialog::Flags, 4100U),
                        Field(&FileDialog::FileName, preset))))
            .WillOnce(Return(""));
    }

    test::TempFolder folder_;
};

TEST_F(MergeTest, NothingOpened_PresetsNoName) {
    ExpectDialog("");
    form1.mnuMerge_Click();
}

TEST_F(MergeTest, OpenedFile_IsPresetLessItsLastCharacter) {
    SetNative("A9\r\n-nick-\r\n\r\n");
    form1.Caption = "Orvik - /home/al/book.txt";
    ExpectDialog("/home/al/book.tx");
    form1.mnuMerge_Click();
    EXPECT_EQ(module1.WorkText, "A9\r\n-nick-\r\n\r\n");
    EXPECT_EQ(module1.TextBeforeOpen, "A9\r\n-nick-\r\n\r\n");
}

TEST_F(MergeTest, TextList_IsJoinedBehindTheOldEntries) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    Merge("b.txt", "\"Bo\" <A2>\r\nA1\r\n");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2", "A1"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"Al", "Bo", ""}));
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(Panel(2), "3 items");
}

TEST_F(MergeTest, Ldif_IsJoined) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    Merge("b.ldif", "x\r\nxmozillanickname: Bo\r\nmail: A2\r\nsn: y\r\n\r\n");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"Al", "Bo"}));
}

TEST_F(MergeTest, Notes_AreJoinedToo) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    module1.Note = {{2, 1}, {}};
    Merge("b.ldif", "x\r\nmail: A2\r\no: z\r\n\r\n");
    EXPECT_EQ(module1.Note.Text(), "3 attributes of 2 entries were not read");
    Merge("c.txt", "A3\r\n");
    EXPECT_EQ(module1.Note.Text(), "3 attributes of 2 entries were not read");
    EXPECT_EQ(module1.NoteBeforeOpen.Text(), "3 attributes of 2 entries were not read");
}

TEST_F(MergeTest, EmptyWindow_GivesTheNewBook) {
    Merge("b.txt", "\"Bo\" <A2>\r\n");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A2"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Bo"});
}

TEST_F(MergeTest, AskingAlways_OnlyBringsTheChooser) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    module1.OpenMode = kAskAlways;
    EXPECT_CALL(platform, ShowForm(Ref(module1.form3), Showing::Modeless));
    Merge("b.txt", "A2\r\n");
    EXPECT_EQ(module1.WorkText, "A2\r\n");
    EXPECT_EQ(Panel(1), "Opening . . .");
}

TEST_F(MergeTest, MissingFile_FailsWith53) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(folder_.Name("missing.txt")));
    EXPECT_EQ(FailureOf([&] { form1.mnuMerge_Click(); }), 53);
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
}

struct Row {
    const char* name;
    std::string_view separator;
    std::string old_text;
    std::string new_text;
    std::string joined;
};

class MergeLdifTest : public test::CommandTest, public testing::WithParamInterface<Row> {};

TEST_P(MergeLdifTest, Row) {
    module1.textSep = GetParam().separator;
    SharedText old_text = GetParam().old_text;
    SharedText new_text = GetParam().new_text;
    module1.MergeLdif(old_text, new_text);
    EXPECT_EQ(module1.WorkText, GetParam().joined);
    EXPECT_EQ(module1.TextMode, "Native");
}

INSTANTIATE_TEST_SUITE_P(,
                         MergeLdifTest,
                         testing::Values(Row{"AsciiAndNative_EachInItsForm",
                                             "\r",
                                             "\"Al\" <A1>\r\n",
                                             "A2\r\n-nick-\r\nBo\r\n",
                                             "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n"},
                                         Row{"EmptyOldText_GivesTheNewOne",
                                             "\r",
                                             "",
                                             "A2\r\n-nick-\r\nBo\r\n",
                                             "A2\r\n-nick-\r\nBo\r\n"},
                                         Row{"EmptyNewText_GivesTheOldOne",
                                             "\r",
                                             "A1\r\n-nick-\r\nAl\r\n",
                                             "",
                                             "A1\r\n-nick-\r\nAl\r\n"},
                                         Row{"Commas_JoinWithAComma",
                                             ",",
                                             "\"Al\" <A1>,",
                                             "A2,",
                                             "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n"}),
                         [](const auto& row) { return row.param.name; });

TEST_F(MergeTest, TwoEmptyTexts_FailWith5) {
    SharedText old_text;
    SharedText new_text;
    EXPECT_EQ(FailureOf([&] { module1.MergeLdif(old_text, new_text); }), 5);
    EXPECT_EQ(module1.WorkText, "\r");
}

}  // namespace
}  // namespace orvik
