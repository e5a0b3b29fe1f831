#include "desktop/windows/form1_window.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <fstream>

#include "desktop/form1_window_fixture.h"
#include "desktop/session/log_out.h"
#include "desktop/text/text_box_view.h"

namespace orvik {
namespace {

using test::Form1WindowTest;
using test::kThree;
using testing::_;
using testing::ElementsAre;
using testing::EndsWith;
using testing::Return;

TEST_F(Form1WindowTest, EveryControlIsOnTheWindowWithItsTexts) {
    for (const NamedControl& control : form1.Controls()) {
        SCOPED_TRACE(control.Name);
        if (const auto* const item = std::get_if<MenuItem*>(&control.Ref)) {
            const auto& action = Find<QAction>(control.Name);
            EXPECT_EQ(action.isSeparator(), (*item)->IsSeparator());
            if (!action.isSeparator()) {
                EXPECT_EQ(action.text().toStdString(), (*item)->Caption);
            }
            continue;
        }
        const auto& widget = Find<QWidget>(control.Name);
        EXPECT_FALSE(widget.accessibleName().isEmpty());
        if (const auto* const button = std::get_if<Button*>(&control.Ref)) {
            EXPECT_EQ(Find<QPushButton>(control.Name).text().toStdString(), (*button)->Caption);
            EXPECT_EQ(widget.toolTip().toStdString(), (*button)->ToolTip);
            EXPECT_FALSE(widget.accessibleName().contains(u'&'));
        }
    }
    for (const int number : {1, 2}) {
        const auto& panel = Find<QLabel>("Panel" + std::to_string(number));
        EXPECT_EQ(panel.text().toStdString(),
                  form1.StatusBar1.Panels(static_cast<std::size_t>(number)).Text);
        EXPECT_EQ(panel.toolTip().toStdString(),
                  form1.StatusBar1.Panels(static_cast<std::size_t>(number)).ToolTip);
        EXPECT_EQ(panel.accessibleDescription(), panel.toolTip());
    }
}

TEST_F(Form1WindowTest, MenusHaveTheirRowsInOrder) {
    const auto menus = form1.Menus();
    const QList<QAction*> shown = window.menuBar()->actions();
    ASSERT_EQ(static_cast<std::size_t>(shown.size()), menus.size());
    for (std::size_t i = 0; i < menus.size(); ++i) {
        const QList<QAction*> rows = shown[static_cast<qsizetype>(i)]->menu()->actions();
        ASSERT_EQ(static_cast<std::size_t>(rows.size()), menus[i].Rows.size());
        for (std::size_t j = 0; j < menus[i].Rows.size(); ++j) {
            EXPECT_EQ(rows[static_cast<qsizetype>(j)]->objectName(),
                      ObjectName(menus[i].Rows[j].Name));
        }
    }
}

TEST_F(Form1WindowTest, CommandsHaveTheUsualKeys) {
    const struct {
        const char* Name;
        const char* Keys;
    } rows[] = {
        {"mnuOpen", "Ctrl+O"}, {"mnuSave", "Ctrl+S"}, {"mnuExit", "Ctrl+Q"}, {"mnuEntEd", "F2"}};
    for (const auto& row : rows) {
        EXPECT_EQ(Find<QAction>(row.Name).shortcut(), QKeySequence(QString::fromLatin1(row.Keys)));
    }
}

// Counts what makes a widget paint itself or lay itself out.
class TouchCounter : public QObject {
 public:
    bool eventFilter(QObject* /*receiver*/, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Paint:
            case QEvent::LayoutRequest:
            case QEvent::Resize:
            case QEvent::Move:
            case QEvent::Show:
            case QEvent::Hide:
            case QEvent::EnabledChange:
            case QEvent::WindowTitleChange:
                ++touches;
                break;
            default:
                break;
        }
        return false;
    }
    int touches = 0;
};

TEST_F(Form1WindowTest, ASecondSyncTouchesNothing) {
    Show();
    List(kThree);
    form1.ProgressBar1.Value = 30;
    form1.Caption = "Orvik - a";
    window.sync();
    Settle();
    TouchCounter counter;
    qApp->installEventFilter(&counter);
    window.sync();
    window.sync();
    Settle();
    qApp->removeEventFilter(&counter);
    EXPECT_EQ(counter.touches, 0);
}

TEST_F(Form1WindowTest, ARepaintShowsProgressWithoutTakingEvents) {
    Show();
    bool taken = false;
    QMetaObject::invokeMethod(
        &window, [&] { taken = true; }, Qt::QueuedConnection);
    TouchCounter counter;
    qApp->installEventFilter(&counter);
    desktop.run([&] {
        form1.ProgressBar1.Visible = true;
        form1.ProgressBar1.Value = 42;
        form1.StatusBar1.SetPanelText(1, "Converting: 42%");
        desktop.repaint();
        EXPECT_TRUE(Find<QProgressBar>("ProgressBar1").isVisible());
    });
    qApp->removeEventFilter(&counter);
    EXPECT_GT(counter.touches, 0);
    EXPECT_FALSE(taken);
    EXPECT_EQ(PanelText(1), QStringLiteral("Converting: 42%"));
    EXPECT_EQ(Find<QProgressBar>("ProgressBar1").value(), 42);
}

TEST_F(Form1WindowTest, ACommandThatIsOverLeavesNoProgressBar) {
    Show();
    form1.ProgressBar1.Visible = true;
    desktop.run([&] {
        window.sync();
        EXPECT_TRUE(Find<QProgressBar>("ProgressBar1").isVisible());
    });
    EXPECT_FALSE(Find<QProgressBar>("ProgressBar1").isVisible());
    EXPECT_TRUE(form1.ProgressBar1.Visible);
}

TEST_F(Form1WindowTest, TheProgressBarFillsTheStatusBarBesideThePanels) {
    Show();
    form1.ProgressBar1.Visible = true;
    form1.StatusBar1.PanelSizing = AutoSize::Contents;
    desktop.run([this] { window.sync(); });
    const auto& bar = Find<QProgressBar>("ProgressBar1");
    const auto& last = Find<QLabel>("Panel2");
    EXPECT_EQ(bar.x(), last.geometry().right() + 1 + 4);  // 60 twips
    EXPECT_EQ(bar.geometry().right() + 1, window.statusBar()->width());
    EXPECT_EQ(bar.y(), 2);  // 25 twips
    EXPECT_EQ(bar.height(), window.statusBar()->height() - 4);
    form1.StatusBar1.PanelSizing = AutoSize::Spring;
    window.sync();
    EXPECT_GT(last.geometry().right(), window.width() * 3 / 4);
}

TEST_F(Form1WindowTest, TheListsFollowEachOthersClicks) {
    Show();
    List(kThree);
    auto& list1 = Find<QListView>("List1");
    auto& list2 = Find<QListView>("List2");
    ClickRow(list1, 1);
    EXPECT_THAT(form1.List2.Selected(), ElementsAre(1));
    EXPECT_TRUE(list2.selectionModel()->isSelected(list2.model()->index(1, 0)));
    ClickRow(list2, 2, Qt::ControlModifier);
    EXPECT_THAT(form1.List2.Selected(), ElementsAre(1, 2));
    EXPECT_THAT(form1.List1.Selected(), ElementsAre(2));
    // A row that is deselected is followed too.
    ClickRow(list2, 1, Qt::ControlModifier);
    EXPECT_THAT(form1.List2.Selected(), ElementsAre(2));
    EXPECT_THAT(form1.List1.Selected(), ElementsAre(1));
    QTest::keyClick(&list1, Qt::Key_Down);
    EXPECT_THAT(form1.List2.Selected(), ElementsAre(2));
}

TEST_F(Form1WindowTest, TheFormIsToldTheWindowsSize) {
    Show();
    window.resize(480, 400);
    Settle();
    EXPECT_EQ(form1.Width, window.frameGeometry().width() * 15);
    EXPECT_EQ(form1.Height, window.frameGeometry().height() * 15);
    EXPECT_EQ(form1.ScaleWidth, 7200);
    EXPECT_EQ(form1.ScaleHeight,
              6000 - (window.menuBar()->height() + Find<QToolBar>("toolBar").height()) * 15);
    EXPECT_EQ(Find<QListView>("List1").geometry().right() + 1, Find<QListView>("List2").x());
    EXPECT_EQ(Find<QListView>("List2").geometry().right() + 1, 480);
}

TEST_F(Form1WindowTest, ControlsFillTheWindowAndDoNotOverlap) {
    Show();
    for (const int width : {230, 401, 1000}) {
        window.resize(width, 300);
        Settle();
        const int bottom = window.centralWidget()->height();
        const auto& list = Find<QListView>("List1");
        const auto& button = Find<QPushButton>("cmdEmail");
        EXPECT_EQ(list.geometry().bottom() + 1, button.y());
        EXPECT_EQ(button.geometry().bottom() + 1, bottom);
        EXPECT_EQ(button.height(), button.sizeHint().height());
        EXPECT_EQ(Find<TextBoxView>("Text1").height(), bottom);
        EXPECT_EQ(Find<TextBoxView>("Text1").width(), width);
    }
}

TEST_F(Form1WindowTest, AButtonGoesWhereTheFormPutsIt) {
    Show();
    form1.cmdCancel.Visible = true;
    form1.cmdCancel.Left = 1500;
    form1.cmdCancel.Top = 1800;
    window.sync();
    EXPECT_EQ(Find<QPushButton>("cmdCancel").pos(), QPoint(100, 120));
    form1.cmdCancel.Top = 0;
    window.sync();
    EXPECT_EQ(Find<QPushButton>("cmdCancel").y(), Find<QPushButton>("cmdEmail").y());
}

TEST_F(Form1WindowTest, TheWindowIsNeverSmallerThanItsFloor) {
    Show();
    window.resize(10, 10);
    Settle();
    EXPECT_EQ(window.frameGeometry().width(), 227);  // 3400 twips, rounded up
    EXPECT_EQ(window.frameGeometry().height(), 100);
    EXPECT_GE(form1.Width, 3400);
    EXPECT_EQ(form1.Height, 1500);
}

TEST_F(Form1WindowTest, F1AnywhereShowsHelp) {
    Show();
    EXPECT_CALL(platform, ProgramFolder()).WillRepeatedly(Return("/p"));
    EXPECT_CALL(platform, ShowHelp(HelpCommand::Topic, _, "screenshot.html")).Times(3);
    QTest::keyClick(&window, Qt::Key_F1);
    QTest::keyClick(&Find<QListView>("List1"), Qt::Key_F1);
    SetAscii("a");
    SwitchEditMode();
    QTest::keyClick(&Find<TextBoxView>("Text1"), Qt::Key_F1);
}

TEST_F(Form1WindowTest, ClosingAsksAndStaysOnCancel) {
    Show();
    EXPECT_CALL(platform, ShowForm(_, _));
    EXPECT_CALL(platform, GetSetting(_, _)).WillRepeatedly(Return("5"));
    EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::OK));
    form1.Show(Showing::Modeless);
    ExpectSaveQuestion("Save before exiting?", Answer::Cancel);
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(desktop.hasEnded());
    ExpectSaveQuestion("Save before exiting?", Answer::No);
    EXPECT_CALL(platform, Ended());
    window.close();
    EXPECT_TRUE(desktop.hasEnded());
}

// A session manager that lets the program ask, or not.
struct Session {
    [[nodiscard]] bool allowsInteraction() const { return may_ask; }
    void release() { released = true; }
    void cancel() { cancelled = true; }
    bool may_ask = true;
    bool released = false;
    bool cancelled = false;
};

TEST_F(Form1WindowTest, ALogOutAsksAsClosingDoes) {
    Show();
    EXPECT_CALL(platform, ShowForm(_, _));
    EXPECT_CALL(platform, GetSetting(_, _)).WillRepeatedly(Return("5"));
    EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::OK));
    form1.Show(Showing::Modeless);
    int kept = 0;
    const auto log_out = [&](Session session) {
        AnswerLogOut(
            session, [this] { return window.endForLogOut(); }, [&kept] { ++kept; });
        return session;
    };
    EXPECT_FALSE(log_out({.may_ask = false}).released);
    EXPECT_EQ(kept, 1);
    ExpectSaveQuestion("Save before exiting?", Answer::Cancel);
    EXPECT_TRUE(log_out({}).cancelled);
    EXPECT_FALSE(desktop.hasEnded());
    ExpectSaveQuestion("Save before exiting?", Answer::No);
    EXPECT_CALL(platform, Ended());
    const Session ended = log_out({});
    EXPECT_TRUE(ended.released);
    EXPECT_FALSE(ended.cancelled);
    EXPECT_TRUE(desktop.hasEnded());
    EXPECT_EQ(kept, 1);
}

TEST_F(Form1WindowTest, AFailureIsReportedAndTheWindowGoesOn) {
    ExpectSaveQuestion("Save before clearing?", Answer::No);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return(""));
    EXPECT_CALL(platform, ReportFailure(_));
    Find<QAction>("mnuClearPaste").trigger();
    EXPECT_FALSE(desktop.hasEnded());
}

TEST_F(Form1WindowTest, EscapeIsCancelDuringAnExtractionOnly) {
    Show();
    window.activateWindow();
    Extract(true);
    EXPECT_CALL(platform, ShowBox(_)).WillOnce(Return(Answer::Yes));
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(module1.CancelRequested);
    Extract(false);
    form1.cmdCancel.Visible = true;
    window.sync();
    for (const char* const name : {"List1", "cmdCancel", "cmdEmail"}) {
        Find<QWidget>(name).setFocus();
        QTest::keyClick(&Find<QWidget>(name), Qt::Key_Escape);
    }
    EXPECT_TRUE(window.isVisible());
}

// While the extraction waits for events, only Cancel takes a key.
TEST_F(Form1WindowTest, EscapeIsTakenAtAYield) {
    Show();
    window.activateWindow();
    Extract(true);
    EXPECT_CALL(platform, ShowBox(_)).WillOnce(Return(Answer::Yes));
    QMetaObject::invokeMethod(
        &window,
        [&] { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); },
        Qt::QueuedConnection);
    desktop.run([this] { desktop.yield(); });
    EXPECT_TRUE(module1.CancelRequested);
}

TEST_F(Form1WindowTest, TheTipOfTheItemCountSaysWhatWasNotRead) {
    const auto& first = Find<QLabel>("Panel1");
    const auto& last = Find<QLabel>("Panel2");
    module1.Note = {{3, 2}, {}};
    window.sync();
    EXPECT_EQ(last.toolTip(),
              QStringLiteral("Number of addresses displayed\n"
                             "3 attributes of 2 entries were not read"));
    EXPECT_EQ(last.accessibleDescription(), last.toolTip());
    EXPECT_EQ(first.toolTip(), QStringLiteral("Status"));
    EXPECT_EQ(form1.StatusBar1.Panels(2).ToolTip, "Number of addresses displayed");
    module1.Note = {};
    window.sync();
    EXPECT_EQ(last.toolTip(), QStringLiteral("Number of addresses displayed"));
    EXPECT_EQ(last.accessibleDescription(), last.toolTip());
}

TEST_F(Form1WindowTest, AnOpenedOrPastedBookIsNotedAtTheItemCount) {
    const std::string path = testing::TempDir() + "orvik-noted.ldif";
    std::ofstream(path) << "dn: x\r\nmail: A1\r\no: z\r\n";
    window.openBooks({QString::fromStdString(path)});
    std::remove(path.c_str());
    const auto& tip = Find<QLabel>("Panel2");
    EXPECT_THAT(tip.toolTip().toStdString(), EndsWith("\n1 attribute of 1 entry was not read"));
    ExpectSaveQuestion("Save before clearing?", Answer::No);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("BEGIN:VCARD\r\nFN:Al\r\n"));
    Find<QAction>("mnuClearPaste").trigger();
    EXPECT_THAT(tip.toolTip().toStdString(), EndsWith("\nThe contents look like a vCard"));
}

TEST_F(Form1WindowTest, TheTitleShowsTheCaptionAsText) {
    form1.Caption = "Orvik - <b>a[*]\xFC.ldif";
    window.sync();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Orvik - <b>a[*][*]\u00FC.ldif[*]"));
    const std::string odd = "Orvik - a\n\x1B\xC3\xBC\xE2\x80\xAE.ldif";
    form1.Caption = odd;
    window.sync();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Orvik - a\\x0A\\x1B\u00FC\\u202E.ldif[*]"));
    EXPECT_EQ(form1.Caption, odd);
}

TEST_F(Form1WindowTest, RowsOfMenusHaveNoIcons) {
    std::size_t rows = 0;
    for (const auto* const menu : window.menuBar()->findChildren<QMenu*>()) {
        for (const QAction* const row : menu->actions()) {
            EXPECT_TRUE(row->icon().isNull()) << row->text().toStdString();
            ++rows;
        }
    }
    EXPECT_GT(rows, 20U);
}

}  // namespace
}  // namespace orvik
