// The open book is kept while it is not saved.

#include <QAbstractButton>
#include <fstream>

#include "desktop/form1_recovery_fixture.h"
#include "desktop/text/text_box_view.h"
#include "unit/process_limits.h"

namespace orvik {
namespace {

using test::Form1RecoveryTest;
using test::kThree;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;

TEST_F(Form1RecoveryTest, AChangeIsKeptSoon_AndEachOneAfterIt) {
    Show();
    List(kThree);
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsKept(kThree); }));
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    for (const auto key : {Qt::Key_A, Qt::Key_B}) {
        QTest::keyClick(&text, key);
        EXPECT_TRUE(QTest::qWaitFor([&] { return IsKept(std::string(module1.WorkText.View())); }));
    }
    EXPECT_EQ(module1.WorkText.View().substr(0, 2), "ab");
}

TEST_F(Form1RecoveryTest, NothingIsKept_OfAnEmptyWindowOrABookOfAFile) {
    Show();
    keeper->keepNow();
    EXPECT_THAT(Texts(), IsEmpty());
    List(kThree);
    module1.saved.Mark("/b/al.ldif");
    window.sync();
    keeper->keepNow();
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(Form1RecoveryTest, ABookIsForgotten_WhenItIsSavedOrTheChangeIsUndone) {
    Show();
    List(kThree);
    module1.saved.Mark("/b/al.ldif");
    EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::OK));
    Run("mnuAlphNick");
    form1.DeleteEntries({1});
    window.sync();
    keeper->keepNow();
    EXPECT_EQ(Texts().size(), 1U);
    Run("undo");
    keeper->keepNow();
    EXPECT_THAT(Texts(), IsEmpty());
    Run("redo");
    keeper->keepNow();
    EXPECT_EQ(Texts().size(), 1U);
    EXPECT_CALL(platform, ShowFileDialog(_))
        .WillOnce(Return(folder.filePath(QStringLiteral("saved.txt")).toStdString()));
    Run("mnuSave");
    keeper->keepNow();
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(Form1RecoveryTest, AnExplicitNo_ForgetsTheBook) {
    Show();
    List(kThree);
    keeper->keepNow();
    ExpectSaveQuestion("Save before exiting?", Answer::No);
    EXPECT_CALL(platform, Ended());
    Exit();
    End();
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(Form1RecoveryTest, ASaveThatIsCancelledOnTheWayOut_KeepsTheBook) {
    Show();
    List(kThree);
    ExpectSaveQuestion("Save before exiting?", Answer::Yes);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    EXPECT_CALL(platform, Ended());
    Exit();
    End();
    EXPECT_THAT(Texts(), ElementsAre(kThree));
}

TEST_F(Form1RecoveryTest, ASaveOnTheWayOut_ForgetsTheBook) {
    Show();
    List(kThree);
    ExpectSaveQuestion("Save before exiting?", Answer::Yes);
    EXPECT_CALL(platform, ShowFileDialog(_))
        .WillOnce(Return(folder.filePath(QStringLiteral("saved.txt")).toStdString()));
    EXPECT_CALL(platform, Ended());
    keeper->keepNow();
    Exit();
    End();
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(Form1RecoveryTest, TheBadBookOfSaveAs_KeepsTheBookUnderItsOldTitle) {
    Show();
    List(kThree);
    const std::string bad = folder.filePath(QStringLiteral("bad.htm")).toStdString();
    std::ofstream(bad) << "no book\r\n";
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(bad));
    ExpectTold("Bad Netscape 3.x Address Book!");
    EXPECT_CALL(platform, Ended());
    Run("mnuSave");
    End();
    EXPECT_THAT(Texts(), ElementsAre(kThree));
    EXPECT_EQ(RecoveryStore(files).LeftBooks().at(0).Copy.Caption, "Orvik");
}

TEST_F(Form1RecoveryTest, ANoBeforeOpening_IsNoneWhenNothingWasOpened) {
    Show();
    List(kThree);
    ExpectSaveQuestion("Save before opening?", Answer::No);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    Run("mnuOpen");
    End();
    EXPECT_THAT(Texts(), ElementsAre(kThree));
}

TEST_F(Form1RecoveryTest, ABookThatCannotBeKept_IsToldOfOnce) {
    Show();
    const test::FileSizeLimit full(0);
    List(kThree);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Said().empty(); }));
    EXPECT_EQ(Said(), "What is not saved cannot be kept for the case of a crash: Disk full.");
    SwitchEditMode();
    EXPECT_EQ(Said(), "");
    QTest::keyClick(&Find<TextBoxView>("Text1"), Qt::Key_X);
    QTest::qWait(4 * static_cast<int>(kInterval.count()));
    EXPECT_EQ(Said(), "");
}

TEST_F(Form1RecoveryTest, WhileAPersonTypes_TheLineStays) {
    Show();
    SetAscii("\"Al\" <A1>\r\n");
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    const test::FileSizeLimit full(0);
    QTest::keyClick(&text, Qt::Key_X);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Said().empty(); }));
    QTest::keyClick(&text, Qt::Key_Y);
    EXPECT_NE(Said(), "");
}

TEST_F(Form1RecoveryTest, ABookThatWasNotSaved_IsNamedByWhatBringsItBack) {
    Show();
    const std::string next = folder.filePath(QStringLiteral("next.txt")).toStdString();
    std::ofstream(next) << "to a@b.org and c@d.org \r\n";
    const auto expect_lost = [&](const char* command, const char* question) {
        List(kThree);
        form1.Caption = "Orvik - /b/al.ldif";
        window.sync();
        ExpectSaveQuestion(question, Answer::Yes);
        Run(command);
        EXPECT_EQ(Said(), "/b/al.ldif was not saved. Undo brings it back.") << command;
        QTest::mouseClick(&Find<QAbstractButton>("quietLineLink"), Qt::LeftButton);
        EXPECT_EQ(module1.WorkText, kThree) << command;
        EXPECT_EQ(form1.Caption, "Orvik - /b/al.ldif") << command;
    };
    EXPECT_CALL(platform, Yield()).Times(testing::AnyNumber());
    for (const char* const command : {"mnuOpen", "mnuExtract"}) {
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return("")).WillOnce(Return(next));
        expect_lost(command, "Save before opening?");
    }
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("\"Di\" <A4>\r\n"));
    expect_lost("mnuClearPaste", "Save before clearing?");
}

TEST_F(Form1RecoveryTest, ABookThatWasNotSavedBeforeClearing_IsNamedToo) {
    Show();
    List(kThree);
    form1.Caption = "Orvik - /b/al.ldif";
    window.sync();
    SwitchEditMode();
    const SharedText before = module1.WorkText;
    ExpectSaveQuestion("Save before clearing?", Answer::Yes);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    Run("mnuClear");
    EXPECT_TRUE(module1.WorkText.empty());
    EXPECT_EQ(Said(), "/b/al.ldif was not saved. Undo brings it back.");
    QTest::mouseClick(&Find<QAbstractButton>("quietLineLink"), Qt::LeftButton);
    EXPECT_EQ(module1.WorkText, before);
}

}  // namespace
}  // namespace orvik
