// The commands of src/formats/juno_commands.cpp.

#include <string>

#include "unit/mock_platform.h"
#include "unit/written_books.h"

namespace orvik {
namespace {

using test::Items;
using test::JunoRecord;
using testing::Return;

using ModuleReadJuno = test::CommandTest;

TEST_F(ModuleReadJuno, AnyText_MakesTheModeAscii) {
    EXPECT_EQ(module1.ReadJuno("x"), "");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(ModuleReadJuno, ClipboardBookAfterNo_IsListed) {
    ExpectSaveQuestion("Save before clearing?", Answer::No);
    EXPECT_CALL(platform, ClipboardText())
        .WillOnce(Return("\r\nName:Al\r\nEmail:A1\r\n\r\nName:Bo\r\nEmail:A2\r\nBirth:x\r\n"));
    form1.mnuPasteJuno_Click();
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"Al", "Bo"}));
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_FALSE(module1.EditMode);
    EXPECT_EQ(module1.Note.Text(), "1 attribute of 1 entry was not read");
}

TEST_F(ModuleReadJuno, ClipboardBookAfterCancel_ChangesNothing) {
    SetNative("A9\r\n-nick-\r\n\r\n");
    ExpectSaveQuestion("Save before clearing?", Answer::Cancel);
    form1.mnuPasteJuno_Click();
    EXPECT_EQ(module1.WorkText, "A9\r\n-nick-\r\n\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
}

using JunoText = test::CommandTest;

TEST_F(JunoText, NativeText_IsWrittenWithProgress) {
    SharedText text = "A1\r\n-nick-\r\nAl\r\n";
    module1.TextMode = mode::kNative;
    EXPECT_EQ(module1.JunoText(text), "\r\n\r\n" + JunoRecord("A1", "Al"));
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_FALSE(form1.ProgressBar1.Visible);
}

TEST_F(JunoText, AsciiWorkText_IsParsedFirst) {
    SetAscii("\"Al\" <A1>\r\n");
    EXPECT_EQ(module1.JunoText(module1.WorkText), "\r\n\r\n" + JunoRecord("A1", "Al"));
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
}

TEST_F(JunoText, Copy_PutsTheBookOnTheClipboardAndListsAgain) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    const std::string book = "\r\n\r\n" + JunoRecord("A1", "Al");
    EXPECT_CALL(platform, SetClipboardText(std::string_view(book)));
    form1.mnuJuno_Click();
    EXPECT_FALSE(module1.EditMode);
    EXPECT_EQ(ItemsOf(form1.List1), test::Items{"A1"});
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
}

TEST_F(JunoText, CopyOfEmptyText_LeavesTheClipboardAlone) {
    form1.mnuJuno_Click();
}

}  // namespace
}  // namespace orvik
