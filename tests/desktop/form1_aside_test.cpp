// A book that gave way to another before it was saved stays on the disk.

#include <QAbstractButton>
#include <fstream>

#include "desktop/form1_recovery_fixture.h"
#include "desktop/text/text_box_view.h"
#include "files/form3.h"
#include "unit/process_limits.h"

namespace orvik {
namespace {

using test::kThree;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;
using testing::UnorderedElementsAre;

constexpr const char* kOther = "A8\r\n-nick-\r\nYan\r\n";
constexpr const char* kLine = "/b/al.ldif was not saved. Undo brings it back.";

class Form1AsideTest : public test::Form1RecoveryTest {
 protected:
    Form1AsideTest() {
        EXPECT_CALL(platform, Yield()).Times(testing::AnyNumber());
        std::ofstream(other) << "\"Zoe\" <A7>\r\n";
        std::ofstream(bad) << "\r\n";
    }
    // An open book of a file that has changed.
    void Change(const char* text = kThree) {
        List(text);
        form1.Caption = "Orvik - /b/al.ldif";
        window.sync();
    }
    // The user wants to save first, thinks better of it and goes on.
    void GoOn(const std::string& file, const char* command = "mnuOpen") {
        ExpectSaveQuestion("Save before opening?", Answer::Yes);
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return("")).WillOnce(Return(file));
        Run(command);
    }
    // The texts that are kept, once all is on the disk.
    std::vector<std::string> Kept() {
        keeper->keepNow();
        return Texts();
    }

    const std::string other = folder.filePath(QStringLiteral("other.txt")).toStdString();
    const std::string bad = folder.filePath(QStringLiteral("bad.ldif")).toStdString();
};

TEST_F(Form1AsideTest, OpeningAnotherBook_KeepsTheOldOne) {
    Show();
    Change();
    GoOn(other);
    EXPECT_EQ(Said(), kLine);
    EXPECT_THAT(Kept(), ElementsAre(kThree));
    // It is this program's as long as that lives.
    EXPECT_THAT(RecoveryStore(files).LeftBooks(), IsEmpty());
    Change(kOther);
    EXPECT_THAT(Kept(), UnorderedElementsAre(kThree, kOther));
}

TEST_F(Form1AsideTest, ANoToTheOpenBook_IsNoneToTheOldOne) {
    Show();
    Change();
    keeper->keepNow();
    GoOn(other);
    Change(kOther);
    keeper->keepNow();
    ExpectSaveQuestion("Save before exiting?", Answer::No);
    EXPECT_CALL(platform, Ended());
    Exit();
    End();
    EXPECT_THAT(Texts(), ElementsAre(kThree));
    const auto left = RecoveryStore(files).LeftBooks();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left.front().Copy.File, "/b/al.ldif");
}

TEST_F(Form1AsideTest, ANoBeforeOpening_GivesTheBookUp) {
    Show();
    Change();
    keeper->keepNow();
    ExpectSaveQuestion("Save before opening?", Answer::No);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(other));
    Run("mnuOpen");
    EXPECT_THAT(Kept(), IsEmpty());
}

TEST_F(Form1AsideTest, ADialogThatIsCancelled_SetsNothingAside) {
    Show();
    Change();
    GoOn("");
    EXPECT_THAT(Kept(), ElementsAre(kThree));
    Change(kOther);
    EXPECT_THAT(Kept(), ElementsAre(kOther));
}

TEST_F(Form1AsideTest, WhatComesBackByUndoing_IsTheOpenBook) {
    Show();
    module1.history.Run("Open", [&] { SetNative(kThree); });
    form1.Caption = "Orvik - /b/al.ldif";
    window.sync();
    GoOn(other);
    EXPECT_THAT(Kept(), ElementsAre(kThree));
    for (int i = 0; i < 2; ++i) {
        Run("undo");
        EXPECT_EQ(module1.WorkText, kThree);
        EXPECT_THAT(Kept(), ElementsAre(kThree));
        // Nobody has saved it yet.
        Run("redo");
        EXPECT_THAT(Kept(), ElementsAre(kThree));
    }
    Run("undo");
    EXPECT_CALL(platform, ShowFileDialog(_))
        .WillOnce(Return(folder.filePath(QStringLiteral("saved.ldif")).toStdString()));
    Run("mnuSave");
    EXPECT_THAT(Kept(), IsEmpty());
    Run("redo");
    EXPECT_THAT(Kept(), testing::Not(testing::Contains(kThree)));
}

TEST_F(Form1AsideTest, ABadFile_KeepsTheOldBook) {
    Show();
    Change();
    keeper->keepNow();
    EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::Yes));
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return("")).WillOnce(Return(bad));
    Run("mnuOpen");
    EXPECT_NE(module1.WorkText, kThree);
    EXPECT_THAT(Kept(), testing::Contains(kThree));
}

TEST_F(Form1AsideTest, ExtractingAndPasting_KeepTheOldBook) {
    Show();
    const std::string letter = folder.filePath(QStringLiteral("letter.txt")).toStdString();
    std::ofstream(letter) << "to a@b.org and c@d.org \r\n";
    Change();
    GoOn(letter, "mnuExtract");
    EXPECT_EQ(Said(), kLine);
    EXPECT_THAT(Kept(), testing::Contains(kThree));
    Change(kOther);
    ExpectSaveQuestion("Save before clearing?", Answer::Yes);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("\"Di\" <A4>\r\n"));
    Run("mnuClearPaste");
    const std::vector<std::string> kept = Kept();
    EXPECT_EQ(kept.size(), 3U);
    EXPECT_THAT(kept, testing::IsSupersetOf({kThree, kOther}));
}

TEST_F(Form1AsideTest, ClearingInEditMode_KeepsTheOldBookUntilItComesBack) {
    Show();
    Change();
    SwitchEditMode();
    const std::string text(module1.WorkText.View());
    ExpectSaveQuestion("Save before clearing?", Answer::Yes);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    Run("mnuClear");
    EXPECT_EQ(Said(), kLine);
    EXPECT_THAT(Kept(), ElementsAre(text));
    QTest::mouseClick(&Find<QAbstractButton>("quietLineLink"), Qt::LeftButton);
    EXPECT_EQ(module1.WorkText, text);
    EXPECT_THAT(Kept(), ElementsAre(text));
}

TEST_F(Form1AsideTest, InEditMode_TheLineSaysHowTheOldBookComesBack) {
    Show();
    Change();
    SwitchEditMode();
    const std::string text(module1.WorkText.View());
    GoOn(other);
    ASSERT_TRUE(module1.EditMode);
    EXPECT_EQ(Said(), "/b/al.ldif was not saved. Leave edit mode to bring it back with Undo.");
    EXPECT_FALSE(Find<QAbstractButton>("quietLineLink").isVisible());
    QTest::keyClick(&Find<TextBoxView>("Text1"), Qt::Key_X);
    EXPECT_NE(Said(), "");
    EXPECT_THAT(Kept(), testing::Contains(text));
    SwitchEditMode();
    EXPECT_EQ(Said(), "");
    Run("undo");
    EXPECT_EQ(module1.WorkText, kThree);
}

TEST_F(Form1AsideTest, ARestoredBook_IsKeptToo) {
    Show();
    Leave({.Text = kThree, .Mode = "Native", .Caption = "Orvik - /b/al.ldif"});
    Answer({"&Restore"});
    GoOn(other);
    EXPECT_THAT(Kept(), ElementsAre(kThree));
    End();
    EXPECT_THAT(Texts(), ElementsAre(kThree));
}

TEST_F(Form1AsideTest, UndoingBehindARestore_KeepsTheRestoredBook) {
    Show();
    Leave({.Text = kThree, .Mode = "Native", .Caption = "Orvik - /b/al.ldif"});
    Answer({"&Restore"});
    GoOn(other);
    Run("undo");
    EXPECT_THAT(Kept(), ElementsAre(kThree));
    Run("undo");
    EXPECT_TRUE(module1.WorkText.empty());
    EXPECT_THAT(Kept(), ElementsAre(kThree));
    Run("redo");
    EXPECT_EQ(module1.WorkText, kThree);
    EXPECT_THAT(Kept(), ElementsAre(kThree));
}

TEST_F(Form1AsideTest, ABookThatARestoredOneTakesThePlaceOf_IsKept) {
    Show();
    Leave({.Text = kThree, .Mode = "Native", .Caption = "Orvik"});
    Change(kOther);
    Answer({"&Restore"});
    EXPECT_EQ(Said(), "The book was restored. It is not saved.");
    EXPECT_THAT(Kept(), UnorderedElementsAre(kThree, kOther));
    Run("undo");
    EXPECT_EQ(module1.WorkText, kOther);
    EXPECT_THAT(Kept(), UnorderedElementsAre(kThree, kOther));
    EXPECT_EQ(RecoveryStore(files).LeftBooks().size(), 1U);
}

TEST_F(Form1AsideTest, WhatTheChooserAsksAbout_TakesThePlaceOfTheOldBook) {
    Show();
    Change();
    EXPECT_CALL(platform, ShowForm(_, _));
    program.form3.Show(Showing::Modeless);
    module1.saved.SetFate(SavedBook::Fate::NotSaved);
    SetNative("raw");
    window.sync();
    ExpectSaveQuestion("Save before exiting?", Answer::No);
    EXPECT_CALL(platform, Ended());
    Exit();
    End();
    EXPECT_THAT(Texts(), ElementsAre(kThree));
}

TEST_F(Form1AsideTest, WhatCannotBeSetAside_IsToldOfAndTriedAgain) {
    Show();
    Change();
    {
        const test::FileSizeLimit full(0);
        GoOn(other);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Said().starts_with("What is not saved"); }));
        EXPECT_THAT(Texts(), IsEmpty());
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsKept(kThree); }));
}

TEST_F(Form1AsideTest, MoreThanCanBeUndone_AreLeftToTheNextStart) {
    Show();
    for (int i = 0; i < 53; ++i) {
        Change(("A" + std::to_string(i) + "\r\n-nick-\r\nAl\r\n").c_str());
        GoOn(other);
    }
    EXPECT_EQ(Kept().size(), 53U);
    EXPECT_EQ(RecoveryStore(files).LeftBooks().size(), 3U);
}

}  // namespace
}  // namespace orvik
