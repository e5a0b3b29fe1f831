#include <string>

#include "app/working_text.h"
#include "unit/mock_platform.h"

namespace orvik {
namespace {

class EntryCommandsTest : public test::CommandTest {
 protected:
    void List(const std::string& native) {
        SetNative(native);
        module1.RefreshLists();
        form1.ShowTextIfShort();
    }
};

TEST_F(EntryCommandsTest, AnEditedEntryIsInTextAndLists) {
    List("A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n");
    form1.LdifCurrent = true;
    form1.List1.Select({1});
    EXPECT_TRUE(form1.EditEntry(1, "X", "Y"));
    EXPECT_EQ(module1.WorkText, "A1\r\nX\r\n-nick-\r\nAl\r\nY\r\n");
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
    EXPECT_EQ(module1.TextMode, mode::kNative);
    EXPECT_FALSE(form1.LdifCurrent);
    EXPECT_EQ(ItemsOf(form1.List1), (test::Items{"A1", "X"}));
    EXPECT_EQ(ItemsOf(form1.List2), (test::Items{"Al", "Y"}));
    EXPECT_TRUE(form1.List1.Selected().empty());
    EXPECT_EQ(module1.history.UndoTitle(), "Edit entry");
}

TEST_F(EntryCommandsTest, ARefusedEntryChangesNothing) {
    SetAscii("A1\r\n");
    form1.LdifCurrent = true;
    EXPECT_FALSE(form1.EditEntry(0, "a<b", "Y"));
    EXPECT_EQ(module1.WorkText, "A1\r\n");
    EXPECT_EQ(module1.TextMode, mode::kAscii);
    EXPECT_TRUE(form1.LdifCurrent);
    EXPECT_EQ(module1.history.UndoTitle(), "");
}

TEST_F(EntryCommandsTest, AListIsSplitFirst) {
    SetAscii("\"Al\" <A1>\r\n\"Bo\" <A2>\r\n");
    EXPECT_EQ(form1.EntryRows(), 2U);
    EXPECT_EQ(module1.TextMode, mode::kAscii);
    form1.DeleteEntries({0});
    EXPECT_EQ(module1.WorkText, "A2\r\n-nick-\r\nBo\r\n");
    EXPECT_EQ(module1.history.UndoTitle(), "Delete entries");
}

TEST_F(EntryCommandsTest, WithoutAnEntryThereIsNoRow) {
    EXPECT_EQ(form1.EntryRows(), 0U);
    SetAscii("");
    EXPECT_EQ(form1.EntryRows(), 0U);
    SetNative("-nick-\r\n");
    EXPECT_EQ(form1.EntryRows(), 0U);
}

TEST_F(EntryCommandsTest, TheLastEntryLeavesAnEmptyBook) {
    List("A1\r\n-nick-\r\nAl\r\n");
    form1.Caption = "Orvik - book";
    module1.Note = {{1, 1}, {}};
    form1.DeleteEntries({0});
    EXPECT_EQ(module1.WorkText, "");
    EXPECT_EQ(module1.TextMode, mode::kNone);
    EXPECT_EQ(form1.Text1.Text(), "");
    EXPECT_EQ(Panel(2), "0 items");
    EXPECT_EQ(form1.Caption, "Orvik - book");
    EXPECT_EQ(module1.Note.Text(), "");
    module1.history.Undo();
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_NE(module1.Note.Text(), "");
}

TEST_F(EntryCommandsTest, ALongTextStaysOutOfTheTextBox) {
    // One byte over what the box takes, with the change.
    List(std::string(kTextLimit - 14, 'a') + "\r\n-nick-\r\nAl\r\n");
    ASSERT_EQ(module1.WorkText.size(), kTextLimit);
    ASSERT_TRUE(form1.EditEntry(0, std::string(kTextLimit - 13, 'b'), "Al"));
    EXPECT_EQ(form1.Text1.Text().View().front(), 'a');
    ASSERT_TRUE(form1.EditEntry(0, std::string(kTextLimit - 14, 'b'), "Al"));
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
}

}  // namespace
}  // namespace orvik
