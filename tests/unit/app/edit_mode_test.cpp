#include <string>

#include "app/messages.h"
#include "app/working_text.h"
#include "unit/failure.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::Items;

class EditModeTest : public test::CommandTest {
 protected:
    void ExpectEditing(bool editing) const {
        EXPECT_EQ(module1.EditMode, editing);
        EXPECT_EQ(form1.mnuEntEd.Checked, editing);
        EXPECT_EQ(form1.mnuSelCopy.Enabled, editing);
        EXPECT_EQ(form1.mnuClear.Enabled, editing);
        EXPECT_EQ(form1.mnuPaste.Enabled, editing);
        EXPECT_EQ(form1.mnuDel.Enabled, editing);
        EXPECT_EQ(form1.mnuOrvik.Enabled, !editing);
        EXPECT_EQ(form1.List1.Visible, !editing);
        EXPECT_EQ(form1.List2.Visible, !editing);
        EXPECT_EQ(form1.cmdEmail.Visible, !editing);
        EXPECT_EQ(form1.cmdNick.Visible, !editing);
    }
};

TEST_F(EditModeTest, NativeText_IsShownAsAsciiForm) {
    SetNative("A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n");
    form1.mnuEntEd_Click();
    ExpectEditing(true);
    EXPECT_EQ(form1.Text1.Text(), "\"Al\" <A1>\r\n\"\" <A2>\r\n");
    EXPECT_EQ(module1.WorkText, form1.Text1.Text());
    EXPECT_EQ(module1.TextMode, "ASCII");
    EXPECT_EQ(Panel(1), "Edit Mode on");
    EXPECT_EQ(Panel(2), "20 characters");
}

TEST_F(EditModeTest, AsciiText_IsShownAsItStands) {
    SetAscii("A1 \"Al\"\r");
    form1.mnuEntEd_Click();
    EXPECT_EQ(form1.Text1.Text(), "A1 \"Al\"\r");
}

TEST_F(EditModeTest, EmptyNativeText_IsNotConverted) {
    SetNative("");
    form1.mnuEntEd_Click();
    ExpectEditing(true);
    EXPECT_EQ(form1.Text1.Text(), "");
    EXPECT_EQ(module1.TextMode, "none");
}

TEST_F(EditModeTest, EditedText_IsListedAtTheEnd) {
    form1.mnuEntEd_Click();
    form1.Text1.EditByUser("\"Al\" <A1>\r\n", 11);
    form1.mnuEntEd_Click();
    ExpectEditing(false);
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    EXPECT_EQ(Panel(1), "Ready");
    EXPECT_EQ(Panel(2), "1 items");
}

TEST_F(EditModeTest, EmptiedText_LeavesEmptyListsInNativeMode) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    module1.RefreshLists();
    form1.mnuEntEd_Click();
    form1.Text1.EditByUser("", 0);
    EXPECT_EQ(module1.TextMode, "none");
    form1.mnuEntEd_Click();
    EXPECT_TRUE(form1.List1.Items().empty());
    EXPECT_TRUE(form1.List2.Items().empty());
    EXPECT_EQ(Panel(2), "0 items");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(module1.WorkText, "");
}

TEST_F(EditModeTest, TextOfTheLimit_CanBeEdited) {
    SetAscii(std::string(kTextLimit, 'a'));
    form1.mnuEntEd_Click();
    ExpectEditing(true);
    EXPECT_EQ(Panel(2), "32000 characters");
}

TEST_F(EditModeTest, TextBeyondTheLimit_IsRefused) {
    SetAscii(std::string(kTextLimit + 1, 'a'));
    ExpectTold(TooMuchText(), "Error");
    form1.mnuEntEd_Click();
    ExpectEditing(false);
    EXPECT_EQ(form1.Text1.Text(), "");
}

TEST_F(EditModeTest, PasteBeyondTheLimit_PutsTheOldTextBack) {
    const std::string before(kTextLimit, 'a');
    form1.Text1.SetText(before);
    ExpectTold(TooMuchText(), "Error");
    form1.Text1.EditByUser(before + "b", kTextLimit + 1);
    EXPECT_EQ(form1.Text1.Text(), before);
    EXPECT_EQ(module1.WorkText, before);
}

TEST_F(EditModeTest, FirstTextBeyondTheLimit_LeavesTheBoxEmpty) {
    ExpectTold(TooMuchText(), "Error");
    form1.Text1.EditByUser(std::string(kTextLimit + 1, 'a'), 0);
    EXPECT_EQ(form1.Text1.Text(), "");
    EXPECT_EQ(module1.TextMode, "none");
}

TEST_F(EditModeTest, TextTypedIntoEmptyBox_IsAscii) {
    form1.Text1.EditByUser("A", 1);
    EXPECT_EQ(module1.TextMode, "ASCII");
    EXPECT_EQ(module1.WorkText, "A");
}

TEST_F(EditModeTest, TextPutIntoTheBox_KeepsAnotherMode) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    form1.Text1.SetText(module1.WorkText);
    EXPECT_EQ(module1.TextMode, "Native");
}

TEST_F(EditModeTest, EmptiedBox_ForgetsModeAndLdif) {
    form1.Text1.EditByUser("A", 1);
    form1.LdifCurrent = true;
    form1.Text1.EditByUser("", 0);
    EXPECT_EQ(module1.TextMode, "none");
    EXPECT_FALSE(form1.LdifCurrent);
    form1.Text1.EditByUser("B", 1);
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(EditModeTest, TextOutsideEditMode_IsNotCounted) {
    form1.Text1.EditByUser("A", 1);
    EXPECT_EQ(Panel(2), "0 Items");
}

TEST_F(EditModeTest, EditedTextWithoutEntry_FailsWith5AndStays) {
    form1.mnuEntEd_Click();
    form1.Text1.EditByUser("\r\n", 2);
    EXPECT_EQ(FailureOf([&] { form1.mnuEntEd_Click(); }), 5);
    EXPECT_EQ(module1.WorkText, "\r\n");
    ExpectEditing(false);
}

}  // namespace
}  // namespace orvik
