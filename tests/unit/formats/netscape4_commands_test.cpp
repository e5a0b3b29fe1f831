// The commands of src/formats/netscape4_commands.cpp.

#include <string>

#include "app/messages.h"
#include "unit/failure.h"
#include "unit/mock_platform.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::Items;
using test::LdifRecord;
using testing::Return;

using Unconvert = test::CommandTest;

TEST_F(Unconvert, WrittenBook_ReadsBackOneEntryPerRecord) {
    SetNative("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
    form1.mnuConvert_Click();
    form1.mnuUn_Click();
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\n\"\" <A2>\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(Unconvert, Text_LeavesListsAndBoxAlone) {
    module1.LdifText = "dn: x\r\nmail: A1\r\nsn: y\r\n\r\n";
    form1.mnuUn_Click();
    EXPECT_EQ(module1.WorkText, "<A1>\r\n");
    EXPECT_EQ(form1.Text1.Text(), "");
    EXPECT_TRUE(form1.List1.Items().empty());
}

TEST_F(Unconvert, ClipboardBookAfterNo_IsListed) {
    ExpectSaveQuestion("Save before clearing?", Answer::No);
    EXPECT_CALL(platform, ClipboardText())
        .WillOnce(testing::Return("dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\n\r\n"));
    form1.Caption = "Orvik - old";
    form1.mnuClearPasteNet4_Click();
    EXPECT_EQ(module1.MsgAnswer, "7");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(ItemsOf(form1.List1), test::Items{"A1"});
    EXPECT_EQ(ItemsOf(form1.List2), test::Items{"Al"});
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_EQ(module1.Note.Text(), "1 attribute of 1 entry was not read");
}

TEST_F(Unconvert, ClipboardBookAfterCancel_ChangesNothing) {
    SetAscii("A9\r");
    ExpectSaveQuestion("Save before clearing?", Answer::Cancel);
    form1.mnuClearPasteNet4_Click();
    EXPECT_EQ(module1.WorkText, "A9\r");
    EXPECT_EQ(module1.MsgAnswer, "2");
}

using Convert = test::CommandTest;

TEST_F(Convert, NativeText_IsKeptInLdifText) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    form1.mnuConvert_Click();
    EXPECT_EQ(module1.LdifText, LdifRecord("A1", "Al"));
    EXPECT_TRUE(form1.LdifCurrent);
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
}

TEST_F(Convert, AsciiText_BecomesNativeWhileTheModeStays) {
    SetAscii("\"Al\" <A1>\r\n");
    form1.mnuConvert_Click();
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
    EXPECT_EQ(module1.LdifText, LdifRecord("A1", "Al"));
}

TEST_F(Convert, OtherText_BecomesNativeInPlace) {
    module1.TextMode = mode::kAscii;
    SharedText text = "A2\r\n";
    form1.Convert(text);
    EXPECT_EQ(text, "A2\r\n-nick-\r\n\r\n");
    EXPECT_EQ(module1.WorkText, "");
}

TEST_F(Convert, End_PutsTheDisplayBack) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    form1.mnuConvert_Click();
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(form1.StatusBar1.PanelSizing, AutoSize::Spring);
    EXPECT_FALSE(form1.ProgressBar1.Visible);
    EXPECT_EQ(form1.ProgressBar1.Value, 100);
}

TEST_F(Convert, TextWithoutEntry_LeavesEmptyLdifAndTheDisplayAsItStood) {
    SetNative("-nick-\r\n");
    module1.LdifText = "old";
    form1.mnuConvert_Click();
    EXPECT_EQ(module1.LdifText, "");
    EXPECT_TRUE(form1.LdifCurrent);
    EXPECT_EQ(Panel(1), "Converting: 100%");
    EXPECT_EQ(form1.StatusBar1.PanelSizing, AutoSize::Contents);
    EXPECT_TRUE(form1.ProgressBar1.Visible);
}

TEST_F(Convert, ListWithoutEntry_FailsBeforeAnythingChanges) {
    SetAscii("\r\n");
    module1.LdifText = "old";
    EXPECT_EQ(FailureOf([&] { form1.mnuConvert_Click(); }), 5);
    EXPECT_EQ(module1.LdifText, "old");
    EXPECT_FALSE(form1.LdifCurrent);
}

TEST_F(Convert, EmptyTextWithoutMode_EndsWithEmptyLdif) {
    form1.mnuConvert_Click();
    EXPECT_EQ(module1.LdifText, "");
    EXPECT_TRUE(form1.LdifCurrent);
}

TEST_F(Convert, EmptyTextToCopy_LeavesTheClipboardAlone) {
    form1.mnuCopyConvert_Click();
    EXPECT_FALSE(form1.LdifCurrent);
}

TEST_F(Convert, TextToCopy_IsPutOnTheClipboard) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    const std::string ldif = LdifRecord("A1", "Al");
    EXPECT_CALL(platform, SetClipboardText(std::string_view(ldif)));
    form1.mnuCopyConvert_Click();
}

}  // namespace
}  // namespace orvik
