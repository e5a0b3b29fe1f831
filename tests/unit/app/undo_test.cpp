#include "app/undo.h"

#include <string>
#include <vector>

#include "app/messages.h"
#include "unit/mock_platform.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using test::Items;
using testing::_;
using testing::Property;
using testing::Return;

class UndoTest : public test::CommandTest {
 protected:
    // A command that does nothing but change the text.
    void SetText(std::string_view title, std::string_view text) {
        history_.Run(title, [&] { module1.WorkText = text; });
    }
    void RunHandler(std::string_view name) {
        for (const NamedHandler& handler : form1.Handlers()) {
            if (handler.Name == name) {
                module1.RunCommand(handler);
                return;
            }
        }
        FAIL() << "no handler " << name;
    }
    void ExpectReported(int number) {
        EXPECT_CALL(platform, ReportFailure(Property(&RunTimeError::Number, number)));
    }
    void ExpectTitles(std::string_view undo, std::string_view redo) {
        EXPECT_EQ(history_.UndoTitle(), undo);
        EXPECT_EQ(history_.RedoTitle(), redo);
    }

    UndoHistory& history_ = module1.history;
};

TEST_F(UndoTest, EntriesBefore_AreThoseThatTheLastCommandFound) {
    EXPECT_EQ(history_.EntriesBefore(), 0U);
    SetNative("A1\r\nA2\r\n-nick-\r\n\r\n\r\n");
    SetText("Clear", "");
    EXPECT_TRUE(history_.LastCanBeUndone());
    EXPECT_EQ(history_.EntriesBefore(), 2U);
}

TEST_F(UndoTest, NoStep_DoesNothing) {
    SetNative("A1\r\n-nick-\r\n\r\n");
    history_.Undo();
    history_.Redo();
    ExpectTitles("", "");
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\n\r\n");
}

TEST_F(UndoTest, ChangedText_ComesAndGoes) {
    SetText("First", "a");
    ExpectTitles("First", "");
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "");
    ExpectTitles("", "First");
    history_.Redo();
    EXPECT_EQ(module1.WorkText, "a");
    ExpectTitles("First", "");
}

TEST_F(UndoTest, Steps_GoOneAfterTheOther) {
    SetText("First", "a");
    SetText("Second", "b");
    SetText("Third", "c");
    history_.Undo();
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "a");
    ExpectTitles("First", "Second");
    history_.Redo();
    EXPECT_EQ(module1.WorkText, "b");
    ExpectTitles("Second", "Third");
}

TEST_F(UndoTest, UnchangedText_IsNoStep) {
    SetText("First", "a");
    SetText("Second", "a");
    history_.Run("Third", [this] { form1.Caption = "Orvik - x"; });
    ExpectTitles("First", "");
}

TEST_F(UndoTest, NewStep_ClearsRedo) {
    SetText("First", "a");
    history_.Undo();
    SetText("Second", "b");
    ExpectTitles("Second", "");
    history_.Redo();
    EXPECT_EQ(module1.WorkText, "b");
}

TEST_F(UndoTest, CommandWithoutAChange_KeepsRedo) {
    SetText("First", "a");
    history_.Undo();
    SetText("Second", "");
    ExpectTitles("", "First");
}

TEST_F(UndoTest, EverythingThatWasShown_ComesBack) {
    SetAscii("A1\r\nA2\r\n");
    module1.RefreshLists();
    form1.Text1.SetText(module1.WorkText);
    form1.List1.Select({1});
    form1.List1.ListIndex = 1;
    form1.List2.Select({0, 1});
    form1.Caption = "Orvik - old";
    form1.LdifCurrent = true;
    history_.Run("Extract", [this] {
        SetAscii("A3\r\n");
        module1.RefreshLists();
        form1.Text1.SetText("other");
        module1.WorkText = "other";
        form1.Caption = "Orvik - new";
    });
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "A1\r\nA2\r\n-nick-\r\n\r\n\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
    EXPECT_EQ(module1.ItemCount, 2U);
    EXPECT_EQ(form1.Text1.Text(), module1.WorkText);
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2"}));
    EXPECT_EQ(form1.List1.Selected(), (std::vector<std::size_t>{1}));
    EXPECT_EQ(form1.List1.ListIndex, 1);
    EXPECT_EQ(form1.List2.Selected(), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(Panel(2), "2 items");
    EXPECT_EQ(form1.Caption, "Orvik - old");
    EXPECT_FALSE(form1.LdifCurrent);
    history_.Redo();
    EXPECT_EQ(module1.WorkText, "other");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A3"});
    EXPECT_EQ(form1.Text1.Text(), "other");
    EXPECT_EQ(Panel(2), "1 items");
    EXPECT_EQ(form1.Caption, "Orvik - new");
}

TEST_F(UndoTest, MoreStepsThanTheMost_LoseTheOldest) {
    for (std::size_t i = 0; i < UndoHistory::kMostSteps + 5; ++i) {
        SetText("Step " + std::to_string(i), std::to_string(i));
    }
    std::size_t undone = 0;
    while (!history_.UndoTitle().empty()) {
        history_.Undo();
        ++undone;
    }
    EXPECT_EQ(UndoHistory::kMostSteps, 50U);
    EXPECT_EQ(undone, UndoHistory::kMostSteps);
    EXPECT_EQ(module1.WorkText, "4");
    EXPECT_EQ(history_.RedoTitle(), "Step 5");
}

TEST_F(UndoTest, MoreBytesThanTheMost_LoseTheOldest) {
    constexpr std::size_t kKept = 2;
    for (char c = 'a'; c <= 'e'; ++c) {
        SetText("Step", std::string(UndoHistory::kMostBytes / kKept - 1000, c));
    }
    std::size_t undone = 0;
    while (!history_.UndoTitle().empty()) {
        history_.Undo();
        ++undone;
    }
    EXPECT_EQ(undone, kKept);
    EXPECT_EQ(module1.WorkText.View().substr(0, 2), "cc");
}

TEST_F(UndoTest, WhatStatesShare_CountsOnce) {
    form1.List1.AddItem(std::string(UndoHistory::kMostBytes - 1000, 'x'));
    for (int i = 1; i <= 10; ++i) {
        SetText("Step", std::to_string(i));
    }
    for (int i = 9; i >= 1; --i) {
        history_.Undo();
        EXPECT_EQ(module1.WorkText, std::to_string(i));
    }
    EXPECT_EQ(history_.UndoTitle(), "Step");
}

TEST_F(UndoTest, StateBeyondTheMostBytes_CannotBeUndone) {
    SetText("First", "a");
    form1.List1.AddItem(std::string(UndoHistory::kMostBytes + 1, 'x'));
    SetText("Second", "b");
    ExpectTitles("", "");
}

TEST_F(UndoTest, EditMode_IsOneStep) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    RunHandler("mnuEntEd_Click");
    ExpectTitles("", "");
    form1.Text1.EditByUser("\"Al\" <A1>\r\nA2\r\n", 0);
    SetText("Inside", "\"Al\" <A1>\r\nA2\r\nA3\r\n");
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "\"Al\" <A1>\r\nA2\r\nA3\r\n");
    RunHandler("mnuEntEd_Click");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"A1", "A2", "A3"}));
    ExpectTitles("Edit mode", "");
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    ExpectTitles("", "Edit mode");
}

TEST_F(UndoTest, EditModeWithoutAChange_IsNoStep) {
    SetNative("A1\r\n-nick-\r\nAl\r\n");
    RunHandler("mnuEntEd_Click");
    RunHandler("mnuEntEd_Click");
    ExpectTitles("", "");
}

TEST_F(UndoTest, EditMode_HidesTheTitles) {
    SetText("First", "a");
    SetText("Second", "b");
    history_.Undo();
    module1.EditMode = true;
    ExpectTitles("", "");
    history_.Redo();
    EXPECT_EQ(module1.WorkText, "a");
    module1.EditMode = false;
    ExpectTitles("First", "Second");
}

TEST_F(UndoTest, CommandInsideAnother_BelongsToIt) {
    history_.Run("Outer", [this] {
        SetText("Inner", "a");
        module1.WorkText = "ab";
    });
    ExpectTitles("Outer", "");
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "");
    ExpectTitles("", "Outer");
}

TEST_F(UndoTest, UndoInsideACommand_DoesNothing) {
    SetText("First", "a");
    history_.Run("Second", [this] {
        module1.WorkText = "b";
        history_.Undo();
        EXPECT_EQ(module1.WorkText, "b");
    });
    ExpectTitles("Second", "");
}

TEST_F(UndoTest, FailingCommand_IsReportedAndCanBeUndone) {
    ExpectReported(6);
    history_.Run("Extract", [this] {
        module1.WorkText = "half";
        throw RunTimeError(Failure::Overflow);
    });
    ExpectTitles("Extract", "");
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "");
}

TEST_F(UndoTest, FailingCommandInsideAnother_LetsTheOuterGoOn) {
    ExpectReported(5);
    history_.Run("Outer", [this] {
        history_.Run("Inner", [] { throw RunTimeError(Failure::InvalidProcedureCall); });
        module1.WorkText = "a";
    });
    ExpectTitles("Outer", "");
}

TEST_F(UndoTest, EndOfTheProgram_PassesThrough) {
    EXPECT_CALL(platform, Ended());
    EXPECT_THROW(history_.Run("Exit", [this] { platform.End(); }), ProgramEnded);
}

TEST_F(UndoTest, OpenedFile_IsTitledAsTheMenuItem) {
    const test::TempFolder folder;
    test::WriteFile(folder.Name("a.txt"), "A1\r\n");
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(folder.Name("a.txt")));
    RunHandler("mnuOpen_Click");
    EXPECT_EQ(ItemsOf(form1.List1), Items{"A1"});
    ExpectTitles("Open file", "");
    history_.Undo();
    EXPECT_EQ(form1.Caption, "Orvik");
    EXPECT_TRUE(form1.List1.Items().empty());
}

TEST_F(UndoTest, NoteOfABook_ComesAndGoesWithIt) {
    SetText("First", "a");
    history_.Run("Second", [this] {
        module1.WorkText = "b";
        module1.Note = {{2, 1}, {}};
    });
    history_.Undo();
    EXPECT_EQ(module1.Note.Text(), "");
    history_.Redo();
    EXPECT_EQ(module1.Note.Text(), "2 attributes of 1 entry were not read");
}

TEST_F(UndoTest, ParseOfAnEmptyList_IsReportedAndKeepsTheText) {
    SetAscii("\r\n");
    ExpectReported(5);
    RunHandler("mnuParse_Click");
    ExpectTitles("Parse nicknames", "");
    history_.Undo();
    EXPECT_EQ(module1.WorkText, "\r\n");
    EXPECT_EQ(module1.TextMode, "ASCII");
}

TEST_F(UndoTest, SortAfterUndo_SortsTheOldText) {
    SetNative("b\r\na\r\n-nick-\r\n\r\n\r\n");
    module1.RefreshLists();
    RunHandler("cmdEmail_Click");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"a", "b"}));
    ExpectTitles("Sort by E-Mail Address", "");
    history_.Undo();
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"b", "a"}));
    RunHandler("cmdEmail_Click");
    EXPECT_EQ(ItemsOf(form1.List1), (Items{"a", "b"}));
}

}  // namespace
}  // namespace orvik
