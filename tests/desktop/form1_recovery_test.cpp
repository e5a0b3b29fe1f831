// The open book is kept while it is not saved, and comes back at the next start.

#include <QAbstractButton>
#include <QDir>
#include <QTemporaryDir>
#include <fstream>
#include <optional>

#include "desktop/form1_window_fixture.h"
#include "desktop/modal_user.h"
#include "desktop/session/recovery_keeper.h"
#include "desktop/text/text_box_view.h"
#include "desktop/views/quiet_line.h"
#include "files/form3.h"
#include "unit/process_limits.h"

namespace orvik {
namespace {

using test::kThree;
using test::ModalUser;
using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Return;

constexpr std::chrono::milliseconds kInterval{50};

class Form1RecoveryTest : public test::Form1WindowTest {
 protected:
    Form1RecoveryTest() {
        window.keepWith(*keeper);
        EXPECT_CALL(platform, SetClipboardText(_)).Times(testing::AnyNumber());
    }

    // What another program would be offered, if this one had been killed.
    [[nodiscard]] std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        const QDir root(folder.filePath(QStringLiteral("orvik/recovery")));
        for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            std::ifstream file(root.filePath(name + QStringLiteral("/book")).toStdString());
            const std::string bytes(std::istreambuf_iterator<char>(file), {});
            if (const auto copy = ReadRecoveryCopy(bytes)) {
                texts.emplace_back(copy->Text.View());
            }
        }
        return texts;
    }
    [[nodiscard]] bool IsKept(const std::string& text) {
        return Texts() == std::vector<std::string>{text};
    }
    void Leave(const RecoveryCopy& copy) { RecoveryStore(files).Keep(copy); }
    void LeaveTwo() {
        Leave({.Text = kThree,
               .Mode = "Native",
               .Caption = "Orvik - /b/newer.ldif",
               .File = "/b/newer.ldif",
               .Entries = 3,
               .Seconds = 1'700'000'000});
        Leave(
            {.Text = "A1\r\n-nick-\r\nAl\r\n", .Mode = "Native", .Caption = "Orvik", .Entries = 1});
    }
    // Presses these buttons of the boxes, one after the other; returns what they said. Without a
    // name Escape is pressed.
    std::vector<std::string> Answer(const std::vector<const char*>& buttons) {
        std::vector<std::string> said;
        std::vector<std::function<void()>> acts;
        for (const char* const button : buttons) {
            acts.emplace_back([&said, button] {
                QMessageBox& box = ModalUser::box();
                said.push_back(box.text().toStdString());
                for (QAbstractButton* const shown : box.buttons()) {
                    if (shown->text() == QLatin1String(button)) {
                        shown->click();
                        return;
                    }
                }
                QTest::keyClick(&box, Qt::Key_Escape);
            });
        }
        const ModalUser user(std::move(acts));
        window.offerLeftBooks();
        // The offers are an event of their own.
        for (int i = 0; i < 20; ++i) {
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(user.done(), buttons.size());
        return said;
    }
    std::string Said() {
        const auto& line = Find<QuietLine>("quietLine");
        return line.isVisible() ? line.text().toStdString() : std::string();
    }
    void Run(const char* command) { Find<QAction>(command).trigger(); }
    void Exit() {
        desktop.run([this] { form1.Form_Unload(); });
    }
    // The program ends, in good order.
    void End() {
        keeper->end(module1);
        keeper.reset();
    }

    QTemporaryDir folder;
    const bool own_state = qputenv("XDG_STATE_HOME", folder.path().toLocal8Bit());
    std::optional<RecoveryKeeper> keeper{std::in_place, files, kInterval};
};

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

TEST_F(Form1RecoveryTest, ALeftBook_IsOfferedWithAllThatIsKnownOfIt) {
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

TEST_F(Form1RecoveryTest, ARestoredBook_CanBeUndoneAndIsKeptAgain) {
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
    keeper->keepNow();
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(Form1RecoveryTest, ARestoredBook_IsOnTheDiskAllTheTime) {
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

TEST_F(Form1RecoveryTest, OfTwoThatAreRestored_TheFirstStaysOnTheDisk) {
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
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left.front().Copy.Text, kThree);
}

TEST_F(Form1RecoveryTest, EditModeComesBack) {
    Show();
    Leave({.Text = "half", .Mode = "ASCII", .Caption = "Orvik", .Box = "half", .EditMode = true});
    Answer({"&Restore"});
    EXPECT_TRUE(module1.EditMode);
    EXPECT_EQ(Find<TextBoxView>("Text1").toPlainText(), QStringLiteral("half"));
    SwitchEditMode();
    Run("undo");
    Run("undo");
    EXPECT_TRUE(module1.WorkText.empty());
}

TEST_F(Form1RecoveryTest, SavingALeftBook_BringsBackWhatWasOpen) {
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

TEST_F(Form1RecoveryTest, SavingALeftBookInAnEmptyWindow_OpensIt) {
    Show();
    LeaveTwo();
    const std::string saved = folder.filePath(QStringLiteral("saved.ldif")).toStdString();
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(saved));
    Answer({"&Save as...", "&Not now"});
    EXPECT_EQ(form1.Caption, "Orvik - " + saved);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(Texts().size(), 1U);
}

TEST_F(Form1RecoveryTest, WhileTheChooserWaits_NothingIsOfferedOrKept) {
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
