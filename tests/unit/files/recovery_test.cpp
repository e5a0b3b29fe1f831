#include <string>

#include "files/recovery_copy.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::Items;

constexpr const char* kTwo = "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n";

class RecoveryTest : public test::CommandTest {
 protected:
    // The same copy, read from its file.
    RecoveryCopy Kept(std::string_view title) {
        static_cast<void>(module1.saved.Differs());
        return ReadRecoveryCopy(WriteRecoveryCopy(form1.CopyOfBook(title, 12))).value();
    }
};

TEST_F(RecoveryTest, ACopy_SharesTheTexts) {
    module1.saved.Follow([](const std::string&) {});
    SetNative(kTwo);
    module1.RefreshLists();
    form1.Text1.SetText(module1.WorkText);
    ASSERT_TRUE(module1.saved.Differs());
    const RecoveryCopy copy = form1.CopyOfBook("Orvik - /b/al.ldif", 12);
    EXPECT_EQ(copy.Text.Revision(), module1.WorkText.Revision());
    EXPECT_EQ(copy.Box.Revision(), form1.Text1.Text().Revision());
    EXPECT_EQ(copy.Mode, module1.TextMode);
    EXPECT_EQ(copy.Caption, "Orvik - /b/al.ldif");
    EXPECT_EQ(copy.File, "/b/al.ldif");
    EXPECT_EQ(copy.Entries, 2U);
    EXPECT_EQ(copy.Seconds, 12);
    EXPECT_EQ(form1.CopyOfBook("Orvik", 12).File, "");
}

TEST_F(RecoveryTest, Restoring_BringsTextModeTitleAndLists) {
    SetNative(kTwo);
    const RecoveryCopy copy = Kept("Orvik - /b/al.ldif");
    SetNative("");
    form1.RestoreBook(copy);
    EXPECT_EQ(module1.WorkText, kTwo);
    EXPECT_EQ(module1.TextMode, mode::kNative);
    EXPECT_EQ(form1.Caption, "Orvik - /b/al.ldif");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2"}));
    EXPECT_EQ(ItemsOf(form1.List2), (Items{"Al", "Bo"}));
    EXPECT_EQ(Panel(2), "2 items");
}

TEST_F(RecoveryTest, AListInTheAsciiForm_IsListedAndStaysAsItIs) {
    SetAscii("\"Al\" <A1>\r\"Bo\" <A2>\r");
    const RecoveryCopy copy = Kept("Orvik");
    SetNative("");
    form1.RestoreBook(copy);
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\"Bo\" <A2>\r");
    EXPECT_EQ(module1.TextMode, mode::kAscii);
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2"}));
}

TEST_F(RecoveryTest, ATextThatIsNoList_ComesBackAllTheSame) {
    SetNative(kTwo);
    module1.RefreshLists();
    for (const char* const text : {"", "\r\r\r", ",", "no separator", "-nick-"}) {
        for (const std::string_view mode : {mode::kNone, mode::kAscii, mode::kNative}) {
            form1.RestoreBook({.Text = text, .Mode = std::string(mode), .Caption = "Orvik"});
            EXPECT_EQ(module1.WorkText, text);
            EXPECT_EQ(module1.TextMode, mode);
        }
    }
}

TEST_F(RecoveryTest, EditMode_GoesOnWithTheVeryText) {
    SetAscii("\"Al\" <A1>\r");
    form1.mnuEntEd_Click();
    form1.Text1.EditByUser("half \"Al\" <A", 4);
    const RecoveryCopy copy = Kept("Orvik");
    form1.Text1.SetText("");
    form1.mnuEntEd_Click();
    form1.RestoreBook(copy);
    EXPECT_FALSE(module1.EditMode);
    form1.ResumeEditing(copy);
    EXPECT_TRUE(module1.EditMode);
    EXPECT_EQ(module1.WorkText, "half \"Al\" <A");
    EXPECT_EQ(form1.Text1.Text(), "half \"Al\" <A");
    EXPECT_FALSE(form1.List1.Visible);
    EXPECT_FALSE(form1.mnuOrvik.Enabled);
    EXPECT_EQ(Panel(1), "Edit Mode on");
    EXPECT_EQ(Panel(2), "12 characters");
}

TEST_F(RecoveryTest, ARestoredBook_IsNoFiles) {
    module1.saved.Follow([](const std::string&) {});
    SetNative(kTwo);
    module1.RefreshLists();
    module1.saved.Mark("/b/al.ldif");
    const RecoveryCopy copy = Kept("Orvik - /b/al.ldif");
    EXPECT_FALSE(module1.saved.Differs());
    form1.RestoreBook(copy);
    EXPECT_TRUE(module1.saved.Differs());
}

TEST_F(RecoveryTest, FileOf_IsWhatCaptionOfWasGiven) {
    EXPECT_EQ(Form1::FileOf(Form1::CaptionOf("/b/Orvik - al.ldif")), "/b/Orvik - al.ldif");
    EXPECT_EQ(Form1::FileOf("Orvik"), "");
    EXPECT_EQ(Form1::FileOf(""), "");
}

}  // namespace
}  // namespace orvik
