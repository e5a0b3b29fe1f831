// Books that an ended program has left are offered, and come back.

#include <QAbstractButton>
#include <fstream>

#include "desktop/form1_recovery_fixture.h"
#include "desktop/text/text_box_view.h"
#include "files/form3.h"
#include "unit/process_limits.h"

namespace orvik {
namespace {

using Form1RestoreTest = test::Form1RecoveryTest;
using test::kThree;
using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Return;

TEST_F(Form1RestoreTest, ALeftBook_IsOfferedWithAllThatIsKnownOfIt) {
    Show();
    LeaveTwo();
    const std::vector<std::string> said = Answer({"&Not now", "none: Escape"});
    ASSERT_EQ(said.size(), 2U);
    EXPECT_THAT(said[0], HasSubstr("before /b/newer.ldif was saved. It was kept on "));
    EXPECT_THAT(said[0], HasSubstr("with 3 entries."));
    EXPECT_THAT(said[1], HasSubstr("before a new book was saved."));
    EXPECT_THAT(said[1], HasSubstr("with 1 entry."));
    EXPECT_EQ(Texts().size(), 2U);
    EXPECT_EQ(Answer({"&Discard", "&Not now"}).size(), 2U);
    EXPECT_THAT(Texts(), ElementsAre("A1\r\n-nick-\r\nAl\r\n"));
}

TEST_F(Form1RestoreTest, ALongName_IsShownWithoutItsMiddle) {
    Show();
    const std::string name = "/b/" + std::string(3000, 'x') + "/al.ldif";
    Leave({.Text = kThree, .Mode = "Native", .Caption = "Orvik - " + name, .File = name});
    const std::vector<std::string> said = Answer({"&Restore"});
    EXPECT_THAT(said.front(), HasSubstr("before /b/xxx"));
    EXPECT_THAT(said.front(), HasSubstr("\u2026"));
    EXPECT_THAT(said.front(), HasSubstr("x/al.ldif was saved."));
    EXPECT_LT(said.front().size(), 300U);
    EXPECT_LT(Said().size(), 200U);
    EXPECT_LT(window.windowTitle().size(), 1100);
    EXPECT_TRUE(window.windowTitle().endsWith(QStringLiteral("x/al.ldif[*]")));
}

TEST_F(Form1RestoreTest, EntriesThatNobodyKnows_AreCounted) {
    Show();
    Leave({.Text = kThree, .Mode = "Native", .Caption = "Orvik", .Entries = kUnknownEntries});
    EXPECT_THAT(Answer({"&Not now"}).front(), HasSubstr("with 3 entries."));
}

TEST_F(Form1RestoreTest, ARestoredBook_CanBeUndoneAndIsKeptAgain) {
    Show();
    LeaveTwo();
    Answer({"&Restore", "&Discard"});
    EXPECT_EQ(module1.WorkText, kThree);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Orvik - /b/newer.ldif[*]"));
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(PanelText(2), QStringLiteral("3 items"));
    EXPECT_EQ(Said(), "/b/newer.ldif was restored. It is not saved.");
    keeper->keepNow();
    EXPECT_TRUE(IsKept(kThree));
    EXPECT_THAT(RecoveryStore(files).LeftBooks(), IsEmpty());
    QTest::mouseClick(&Find<QAbstractButton>("quietLineLink"), Qt::LeftButton);
    EXPECT_TRUE(module1.WorkText.empty());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Orvik[*]"));
    // Nobody has said that it may go.
    keeper->keepNow();
    EXPECT_TRUE(IsKept(kThree));
    EXPECT_EQ(RecoveryStore(files).LeftBooks().size(), 1U);
    SetAscii("\"Al\" <A1>\r\n");
    window.sync();
    keeper->keepNow();
    EXPECT_EQ(Texts().size(), 2U);
}

TEST_F(Form1RestoreTest, ARestoredBook_IsOnTheDiskAllTheTime) {
    Show();
    Leave({.Text = kThree, .Mode = "Native", .Caption = "Orvik"});
    {
        const test::FileSizeLimit full(0);
        Answer({"&Restore"});
        keeper->keepNow();
        EXPECT_TRUE(IsKept(kThree));
    }
    End();
    EXPECT_EQ(RecoveryStore(files).LeftBooks().size(), 1U);
}

TEST_F(Form1RestoreTest, OfTwoThatAreRestored_TheFirstStaysOnTheDisk) {
    Show();
    LeaveTwo();
    Answer({"&Restore", "&Restore"});
    EXPECT_EQ(module1.WorkText, "A1\r\n-nick-\r\nAl\r\n");
    EXPECT_EQ(Said(), "The book was restored. It is not saved.");
    keeper->keepNow();
    EXPECT_EQ(Texts().size(), 2U);
    Run("undo");
    EXPECT_EQ(module1.WorkText, kThree);
    const std::vector<RecoveryStore::Left> left = RecoveryStore(files).LeftBooks();
    ASSERT_EQ(left.size(), 2U);
    EXPECT_THAT(Texts(), testing::Contains(kThree));
}

TEST_F(Form1RestoreTest, UndoingARestore_ShowsTheBookOfAFileAsItWas) {
    Show();
    List("A9\r\n-nick-\r\nZoe\r\n");
    module1.saved.Mark("/b/zoe.ldif");
    LeaveTwo();
    Answer({"&Restore", "&Discard"});
    keeper->keepNow();
    Run("undo");
    EXPECT_FALSE(window.isWindowModified());
    End();
    EXPECT_THAT(Texts(), ElementsAre(kThree));
}

TEST_F(Form1RestoreTest, ALeftBookLikeTheOpenOne_IsNoStep) {
    Show();
    module1.history.Run("Open", [&] { SetNative(kThree); });
    form1.Caption = "Orvik - /b/al.ldif";
    module1.saved.Mark("/b/al.ldif");
    LeaveTwo();
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    Answer({"&Save as...", "&Discard"});
    EXPECT_EQ(module1.WorkText, kThree);
    EXPECT_EQ(form1.Caption, "Orvik - /b/al.ldif");
    EXPECT_FALSE(window.isWindowModified());
    Answer({"&Restore"});
    EXPECT_FALSE(Find<QAbstractButton>("quietLineLink").isVisible());
}

TEST_F(Form1RestoreTest, EditModeComesBack) {
    Show();
    Leave({.Text = "half", .Mode = "ASCII", .Caption = "Orvik", .Box = "half", .EditMode = true});
    Answer({"&Restore"});
    EXPECT_TRUE(module1.EditMode);
    EXPECT_EQ(Find<TextBoxView>("Text1").toPlainText(), QStringLiteral("half"));
    EXPECT_EQ(Said(),
              "The book was restored. It is not saved. Leave edit mode to take it back with Undo.");
    SwitchEditMode();
    Run("undo");
    Run("undo");
    EXPECT_TRUE(module1.WorkText.empty());
}

TEST_F(Form1RestoreTest, SavingALeftBook_BringsBackWhatWasOpen) {
    Show();
    List("A9\r\n-nick-\r\nZoe\r\n");
    module1.saved.Mark("/b/zoe.ldif");
    const std::string saved = folder.filePath(QStringLiteral("saved.txt")).toStdString();
    LeaveTwo();
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(saved)).WillOnce(Return(""));
    Answer({"&Save as...", "&Save as..."});
    std::ifstream file(saved);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              "\"Al\" <A1>\r\n\"Bo\" <A2>\r\n\"Cy\" <A3>\r\n");
    EXPECT_EQ(module1.WorkText, "A9\r\n-nick-\r\nZoe\r\n");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_THAT(Texts(), ElementsAre("A1\r\n-nick-\r\nAl\r\n"));
}

TEST_F(Form1RestoreTest, SavingALeftBookInAnEmptyWindow_OpensIt) {
    Show();
    LeaveTwo();
    const std::string saved = folder.filePath(QStringLiteral("saved.ldif")).toStdString();
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(saved));
    Answer({"&Save as...", "&Not now"});
    EXPECT_EQ(form1.Caption, "Orvik - " + saved);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(Texts().size(), 1U);
}

TEST_F(Form1RestoreTest, WhileTheChooserWaits_NothingIsOfferedOrKept) {
    Show();
    LeaveTwo();
    List(kThree);
    EXPECT_CALL(platform, ShowForm(_, _));
    EXPECT_CALL(platform, HideForm(_));
    program.form3.Show(Showing::Modeless);
    Answer({});
    SetNative("raw");
    window.sync();
    keeper->keepNow();
    EXPECT_THAT(Texts(), testing::Contains(kThree));
    program.form3.Hide();
    EXPECT_EQ(Answer({"&Not now", "&Not now"}).size(), 2U);
}

}  // namespace
}  // namespace orvik
