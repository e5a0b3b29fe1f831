#include <string>
#include <vector>

#include "app/working_text.h"
#include "unit/failure.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

using test::FailureOf;
using test::Items;
using testing::Return;

constexpr const char* kQuestion = "Save before clearing?";

using ClipboardTest = test::CommandTest;

TEST_F(ClipboardTest, NativeTextCopied_BecomesAscii) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    EXPECT_CALL(platform, SetClipboardText(std::string_view("\"Al\" <A1>\r\n")));
    form1.mnuBoxCopy_Click();
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(ClipboardTest, AsciiTextCopied_StaysAsItStands) {
    SetAscii("A1 Al");
    EXPECT_CALL(platform, SetClipboardText(std::string_view("A1 Al")));
    form1.mnuBoxCopy_Click();
}

TEST_F(ClipboardTest, SelectionCopied_IsUnchanged) {
    form1.Text1.SetText("a\"b<c>\r\n");
    form1.Text1.Select(1, 4);
    EXPECT_CALL(platform, SetClipboardText(std::string_view("\"b<c")));
    form1.mnuSelCopy_Click();
}

TEST_F(ClipboardTest, SelectedRows_AreCopiedAsAddressesOrEntries) {
    SetNative("A1\r\nA2\r\nA3\r\n-nick-\r\nAl\r\nBo\r\nCy\r\n");
    module1.RefreshLists();
    form1.List2.Select({0, 2});
    EXPECT_CALL(platform, SetClipboardText(std::string_view("A1\r\nA3\r\n")));
    form1.CopyAddresses(form1.List2);
    EXPECT_CALL(platform, SetClipboardText(std::string_view("\"Al\" <A1>\r\n\"Cy\" <A3>\r\n")));
    form1.CopyEntries(form1.List2);
}

TEST_F(ClipboardTest, SelectedRowsOfTheLongerList_AreCopiedWithNothingBeside) {
    form1.List2.AddItem("Al");
    form1.List2.Select({0});
    EXPECT_CALL(platform, SetClipboardText(std::string_view("\"Al\" <>\r\n")));
    form1.CopyEntries(form1.List2);
}

TEST_F(ClipboardTest, Paste_ReplacesTheSelection) {
    form1.Text1.SetText("abcd");
    form1.Text1.Select(1, 2);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("X"));
    form1.mnuPaste_Click();
    EXPECT_EQ(module1.WorkText, "aXd");
}

TEST_F(ClipboardTest, PasteBeyondTheLimit_IsRefused) {
    const std::string before(kTextLimit, 'a');
    form1.Text1.SetText(before);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("X"));
    ExpectTold(TooMuchText(), "Error");
    form1.mnuPaste_Click();
    EXPECT_EQ(form1.Text1.Text(), before);
}

TEST_F(ClipboardTest, Delete_RemovesTheSelection) {
    form1.Text1.SetText("abcd");
    form1.Text1.Select(1, 2);
    form1.mnuDel_Click();
    EXPECT_EQ(module1.WorkText, "ad");
}

TEST_F(ClipboardTest, ClearAndNo_EmptiesTextAndCaption) {
    form1.Text1.SetText("abcd");
    form1.Caption = "Orvik - a.txt";
    module1.Note = {{2, 1}, "a vCard"};
    ExpectSaveQuestion(kQuestion, Answer::No);
    form1.mnuClear_Click();
    EXPECT_EQ(module1.Note.Text(), "");
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(module1.TextMode, "none");
    EXPECT_EQ(form1.Caption, "Orvik");
}

TEST_F(ClipboardTest, ClearAndCancel_ChangesNothing) {
    form1.Text1.SetText("abcd");
    form1.Caption = "Orvik - a.txt";
    module1.Note = {{}, "a vCard"};
    ExpectSaveQuestion(kQuestion, Answer::Cancel);
    form1.mnuClear_Click();
    EXPECT_EQ(module1.Note.LooksLike, "a vCard");
    EXPECT_EQ(module1.WorkText, "abcd");
    EXPECT_EQ(form1.Caption, "Orvik - a.txt");
}

TEST_F(ClipboardTest, ClearAndPaste_ListsTheText) {
    ExpectSaveQuestion(kQuestion, Answer::No);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("A1 \"Al\"\r\n"));
    form1.mnuClearPaste_Click();
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1 "});
    EXPECT_EQ(ItemsOf(form1.List2), Items{"Al"});
    EXPECT_EQ(form1.Text1.Text(), "A1 \"Al\"\r\n");
    EXPECT_EQ(module1.WorkText, "A1 \r\n-nick-\r\nAl\r\n");
}

TEST_F(ClipboardTest, ClearAndPasteOfSomethingElse_IsNoted) {
    module1.Note = {{2, 1}, {}};
    ExpectSaveQuestion(kQuestion, Answer::No);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("BEGIN:VCARD\r\nFN:Al\r\n"));
    form1.mnuClearPaste_Click();
    EXPECT_EQ(module1.Note.Text(), "The contents look like a vCard");
}

TEST_F(ClipboardTest, ClearAndPasteOfEmptyClipboard_FailsWith5InAsciiMode) {
    SetAscii("A1\r");
    ExpectSaveQuestion(kQuestion, Answer::No);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return(""));
    EXPECT_EQ(FailureOf([&] { form1.mnuClearPaste_Click(); }), 5);
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(ClipboardTest, ClearAndPasteBeyondTheLimit_IsListedButNotShown) {
    form1.Text1.SetText("A9\r");
    const std::string address(kTextLimit, 'a');
    ExpectSaveQuestion(kQuestion, Answer::No);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return(address + "\r"));
    form1.mnuClearPaste_Click();
    EXPECT_EQ(ItemsOf(form1.List1), Items{address});
    EXPECT_EQ(form1.Text1.Text(), "A9\r");
}

class ListClickTest : public test::CommandTest {
 protected:
    ListClickTest() {
        for (const std::string_view item : {"A0", "A1", "A2"}) {
            form1.List1.AddItem(item);
        }
        for (const std::string_view item : {"N0", "N1"}) {
            form1.List2.AddItem(item);
        }
    }
};

using Rows = std::vector<std::size_t>;

TEST_F(ListClickTest, ClickedAddress_SelectsOnlyItsNickname) {
    form1.List2.Select({0});
    form1.List1.Select({0, 1});
    form1.List1.ListIndex = 1;
    form1.List1_Click();
    EXPECT_EQ(form1.List2.Selected(), Rows{1});
    EXPECT_EQ(form1.List1.Selected(), (Rows{0, 1}));
}

TEST_F(ListClickTest, ClickedNickname_SelectsOnlyItsAddress) {
    form1.List2.ListIndex = 0;
    form1.List2_Click();
    EXPECT_EQ(form1.List1.Selected(), Rows{0});
}

TEST_F(ListClickTest, DeselectedAddress_SelectsItsNicknameToo) {
    form1.List1.ListIndex = 0;
    form1.List1.Select({});
    form1.List1_Click();
    EXPECT_EQ(form1.List2.Selected(), Rows{0});
}

TEST_F(ListClickTest, RowMissingInTheOtherList_LeavesItsSelection) {
    form1.List2.Select({0});
    form1.List1.ListIndex = 2;
    form1.List1_Click();
    EXPECT_EQ(form1.List2.Selected(), Rows{0});
}

TEST_F(ListClickTest, NoRowClicked_ChangesNothing) {
    form1.List1_Click();
    EXPECT_TRUE(form1.List2.Selected().empty());
}

}  // namespace
}  // namespace orvik
