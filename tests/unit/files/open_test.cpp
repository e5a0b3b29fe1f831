#include <string>

#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::Items;
using test::WriteFile;
using testing::_;
using testing::AllOf;
using testing::Field;
using testing::Return;

class OpenTest : public test::CommandTest {
 protected:
    std::string File(std::string_view name, std::string_view contents) {
        WriteFile(folder_.Name(name), contents);
        return folder_.Name(name);
    }

    test::TempFolder folder_;
};

TEST_F(OpenTest, Dialog_OffersTheFormatsAndKeepsTheFilter) {
    form1.CommonDialog1.FilterIndex = 3;
    EXPECT_CALL(
        platform,
        ShowFileDialog(AllOf(
            Field(&FileDialog::Kind, DialogKind::Open),
            Field(&FileDialog::Title, "Open file for conversion"),
            Field(&FileDialog::Filter,
                  "Netscape 4.x|*.ldif|Netscape 3.0|*.htm|Internet Explorer 4.x|*.csv|Juno|*.nv|"
                  "WordPerfect 8|*.abx|Pegasus Mail|*.pml|Text files|*.txt|All files|*.*"),
            Field(&FileDialog::Flags, 4100U),
            Field(&FileDialog::FilterIndex, 3),
            Field(&FileDialog::FileName, ""))))
        .WillOnce([](FileDialog& dialog) {
            dialog.FilterIndex = 7;
            return std::string();
        });
    form1.mnuOpen_Click();
    EXPECT_EQ(form1.CommonDialog1.FilterIndex, 7);
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_EQ(Panel(1), "Welcome to Orvik");
}

TEST_F(OpenTest, SaveQuestionAndCancel_ShowsNoDialog) {
    SetAscii("A9\r");
    ExpectSaveQuestion("Save before opening?", Answer::Cancel);
    form1.mnuOpen_Click();
    EXPECT_EQ(module1.WorkText, "A9\r");
    EXPECT_EQ(module1.TextBeforeOpen, "A9\r");
}

TEST_F(OpenTest, SaveQuestionAndNo_GoesOn) {
    SetAscii("A9\r");
    ExpectSaveQuestion("Save before opening?", Answer::No);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(File("a.txt", "A1\r\n")));
    form1.mnuOpen_Click();
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
}

TEST_F(OpenTest, TextList_IsListedAndShown) {
    const std::string name = File("a.txt", "\"Al\" <A1>\r\nA2\r\n");
    form1.OpenBook(name);
    EXPECT_EQ(form1.Caption, "Orvik - " + name);
    EXPECT_EQ(module1.OldCaption, "Orvik");
    EXPECT_EQ(module1.WorkText, "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(Panel(2), "2 items");
    EXPECT_FALSE(form1.LdifCurrent);
}

TEST_F(OpenTest, LdifInAnyCase_IsRead) {
    form1.OpenBook(File("BOOK.LDIF", "dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\n\r\n"));
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Al"});
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(OpenTest, NoteOfTheBook_GivesWayToTheNextOne) {
    form1.OpenBook(File("a.ldif", "dn: x\r\nmail: A1\r\no: x\r\n"));
    EXPECT_EQ(module1.Note.Text(), "1 attribute of 1 entry was not read");
    ExpectSaveQuestion("Save before opening?", Answer::No);
    form1.OpenBook(File("b.txt", "A2\r\n"));
    EXPECT_EQ(module1.Note.Text(), "");
    EXPECT_EQ(module1.NoteBeforeOpen.Text(), "1 attribute of 1 entry was not read");
}

TEST_F(OpenTest, LdifTextNamedTxt_IsATextList) {
    form1.OpenBook(File("book.txt", "mail: A1\r\n"));
    EXPECT_EQ(ItemsOf(form1.List1), Items{"mail: A1"});
}

TEST_F(OpenTest, UnknownEnding_IsATextList) {
    form1.OpenBook(File("book.dat", "A1\r\n"));
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
}

TEST_F(OpenTest, NameCutToLdi_IsATextList) {
    form1.OpenBook(File("book.ldi", "A1\r\n"));
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
}

TEST_F(OpenTest, MissingFile_TellsOfOpeningAndOfReading) {
    SetAscii("A9\r");
    module1.Note = {{2, 1}, {}};
    const testing::InSequence in_order;
    ExpectSaveQuestion("Save before opening?", Answer::No);
    ExpectTold("Error: File not found", "53");
    ExpectTold("Error: Bad file name or number", "52");
    form1.OpenBook(folder_.Name("missing.txt"));
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A9"});
    EXPECT_EQ(module1.Note.Text(), "2 attributes of 1 entry were not read");
    EXPECT_TRUE(folder_.Files().empty());
}

TEST_F(OpenTest, FileWithoutEntry_TellsOfTheLoaderAndGoesOn) {
    ExpectTold("Error: Invalid procedure call or argument", "5");
    form1.OpenBook(File("a.txt", "\r\n"));
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(form1.Text1.Text(), "\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(OpenTest, File_IsClosedAfterReading) {
    form1.OpenBook(File("a.txt", "A1\r\n"));
    EXPECT_EQ(test::FailureOf([&] { static_cast<void>(module1.File1.Length()); }), 52);
}

}  // namespace
}  // namespace orvik
