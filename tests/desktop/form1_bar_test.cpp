// The main window's tool bar, with the last books, and the headings of its lists.

#include <QAbstractButton>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <array>
#include <fstream>
#include <tuple>

#include "desktop/form1_window_fixture.h"
#include "desktop/text/text_box_view.h"

namespace orvik {
namespace {

using test::kThree;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;
using testing::StrEq;

class Form1BarTest : public test::Form1WindowTest {
 protected:
    QToolBar& Bar() { return Find<QToolBar>("toolBar"); }
    QToolButton& ButtonOf(const char* action) {
        return *qobject_cast<QToolButton*>(Bar().widgetForAction(&Find<QAction>(action)));
    }
    void Push(const char* action) { QTest::mouseClick(&ButtonOf(action), Qt::LeftButton); }
    // Which of the six can be pressed, as letters: Open, Save, Undo, Redo, Find, Move.
    std::string Enabled() {
        std::string letters;
        for (const char* const name : kNames) {
            letters += Find<QAction>(name).isEnabled() ? name[3] : '-';
        }
        return letters;
    }
    // What is given to a Book window, "name|lines".
    std::string Moved() {
        std::string moved;
        const auto connection =
            QObject::connect(&window,
                             &Form1Window::moveAsked,
                             &window,
                             [&moved](const std::string& name, const std::string& lines) {
                                 moved = name + "|" + lines;
                             });
        Push("barMove");
        QObject::disconnect(connection);
        return moved;
    }
    std::string Tip(const char* action) { return Find<QAction>(action).toolTip().toStdString(); }
    std::string Write(const char* name, const char* contents = "\"Al\" <A1>\r\n") {
        const QString path = folder.filePath(QString::fromLatin1(name));
        std::ofstream(path.toStdString()) << contents;
        return path.toStdString();
    }
    void Choose(const char* command, const std::string& file) {
        EXPECT_CALL(platform, Yield()).Times(testing::AnyNumber());
        EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::No));
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(file));
        Find<QAction>(command).trigger();
    }
    // What the list of books shows when it is opened.
    QList<QAction*> Books() {
        emit Find<QMenu>("booksMenu").aboutToShow();
        return Find<QMenu>("booksMenu").actions();
    }

    static constexpr std::array kNames = {
        "barOpen", "barSave", "barUndo", "barRedo", "barFind", "barMove"};
    QTemporaryDir folder;
};

TEST_F(Form1BarTest, ItIsFixedAtTheTopAndNoPartOfTheForm) {
    Show();
    window.resize(480, 400);
    Settle();
    EXPECT_FALSE(Bar().isMovable());
    EXPECT_FALSE(Bar().isFloatable());
    EXPECT_EQ(window.toolBarArea(&Bar()), Qt::TopToolBarArea);
    EXPECT_EQ(Bar().y(), window.menuBar()->height());
    EXPECT_EQ(window.centralWidget()->y(), Bar().geometry().bottom() + 1);
    EXPECT_EQ(form1.ScaleHeight, (400 - Bar().geometry().bottom() - 1) * 15);
    for (const NamedControl& control : form1.Controls()) {
        EXPECT_NE(ObjectName(control.Name), Bar().objectName());
    }
}

TEST_F(Form1BarTest, ButtonsRunWhatTheMenusRun) {
    Show();
    List(kThree);
    const std::string file = Write("book.txt");
    EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::No));
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(file));
    Push("barOpen");
    EXPECT_EQ(form1.Caption, "Orvik - " + file);
    EXPECT_EQ(module1.history.UndoTitle(), "Open file");
    const std::string saved = folder.filePath(QStringLiteral("saved.ldif")).toStdString();
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(saved));
    Push("barSave");
    EXPECT_EQ(form1.Caption, "Orvik - " + saved);
    Push("barUndo");
    EXPECT_EQ(form1.List1.Items().size(), 3U);
    Push("barRedo");
    EXPECT_EQ(form1.List1.Items().size(), 1U);
    EXPECT_FALSE(Find<QWidget>("findBar").isVisible());
    Push("barFind");
    EXPECT_TRUE(Find<QWidget>("findBar").isVisible());
}

TEST_F(Form1BarTest, OnlyWhatWouldDoSomethingIsEnabled) {
    Show();
    EXPECT_EQ(Enabled(), "O---F-");
    List(kThree);
    EXPECT_EQ(Enabled(), "OS--FM");
    Find<QAction>("mnuUn").trigger();
    EXPECT_EQ(Enabled(), "OSU-FM");
    Push("barUndo");
    EXPECT_EQ(Enabled(), "OS-RFM");
    Extract(true);
    EXPECT_EQ(Enabled(), "------");
    Extract(false);
    EXPECT_EQ(Enabled(), "OS-RFM");
}

TEST_F(Form1BarTest, TipsNameTheCommandAndItsKey) {
    Show();
    List(kThree);
    EXPECT_EQ(Tip("barUndo"), "Undo (Ctrl+Z)");
    Find<QAction>("mnuUn").trigger();
    EXPECT_EQ(Tip("barUndo"), "Undo Unconvert (Ctrl+Z)");
    EXPECT_EQ(ButtonOf("barUndo").accessibleDescription(), Find<QAction>("barUndo").toolTip());
    Push("barUndo");
    EXPECT_EQ(Tip("barRedo"), "Redo Unconvert (Ctrl+Shift+Z)");
    EXPECT_EQ(Tip("barOpen"), "Open file... (Ctrl+O)");
    EXPECT_EQ(Tip("barSave"), "Save file... (Ctrl+S)");
}

TEST_F(Form1BarTest, InEditModeUndoIsTheTextsOwn) {
    Show();
    List(kThree);
    SwitchEditMode();
    EXPECT_EQ(Enabled(), "OS--FM");
    auto& text = Find<TextBoxView>("Text1");
    const SharedText before = module1.WorkText;
    QTest::keyClick(&text, Qt::Key_X);
    EXPECT_EQ(Enabled(), "OSU-FM");
    EXPECT_EQ(Tip("barUndo"), "Undo editing (Ctrl+Z)");
    Push("barUndo");
    EXPECT_EQ(module1.WorkText, before);
    EXPECT_EQ(Enabled(), "OS-RFM");
    Push("barRedo");
    EXPECT_EQ(std::string(module1.WorkText), "x" + std::string(before));
    EXPECT_TRUE(form1.mnuEntEd.Checked);
}

TEST_F(Form1BarTest, MoveGivesTheEntriesAsTheyAreShown) {
    Show();
    List(kThree);
    EXPECT_EQ(Moved(), "new book|\"Al\" <A1>\r\n\"Bo\" <A2>\r\n\"Cy\" <A3>\r\n");
    EXPECT_EQ(module1.TextMode, "Native");
    Choose("mnuOpen", Write("book.txt"));
    const std::string file = folder.filePath(QStringLiteral("book.txt")).toStdString();
    EXPECT_EQ(Moved(), file + "|\"Al\" <A1>\r\n");
    // In edit mode with what was typed there.
    SwitchEditMode();
    Find<TextBoxView>("Text1").setPlainText(QStringLiteral("Al <A1>\nb@example.org"));
    EXPECT_EQ(Moved(), file + "|\"Al \" <A1>\r\n\"\" <b@example.org>\r\n");
    EXPECT_TRUE(module1.EditMode);
}

TEST_F(Form1BarTest, TheLongestCaptionGoesFirst) {
    Show();
    for (const auto& [width, of_all, of_move] :
         {std::tuple{900, Qt::ToolButtonTextBesideIcon, Qt::ToolButtonTextBesideIcon},
          std::tuple{500, Qt::ToolButtonTextBesideIcon, Qt::ToolButtonIconOnly},
          std::tuple{230, Qt::ToolButtonIconOnly, Qt::ToolButtonIconOnly},
          std::tuple{900, Qt::ToolButtonTextBesideIcon, Qt::ToolButtonTextBesideIcon}}) {
        window.resize(width, 400);
        Settle();
        EXPECT_EQ(ButtonOf("barFind").toolButtonStyle(), of_all) << width;
        EXPECT_EQ(ButtonOf("barMove").toolButtonStyle(), of_move) << width;
        EXPECT_TRUE(ButtonOf("barMove").isVisible()) << width;
    }
    EXPECT_EQ(ButtonOf("barMove").accessibleName(), QStringLiteral("Move to another program..."));
    EXPECT_FALSE(ButtonOf("barMove").accessibleDescription().isEmpty());
}

TEST_F(Form1BarTest, BooksThatWereOpenedOrSavedAreListed) {
    const std::string first = Write("first.txt");
    const std::string second = Write("second.txt");
    Choose("mnuOpen", first);
    window.openBooks({QString::fromStdString(second)});
    // What is merged or extracted from is not the book.
    Choose("mnuMerge", Write("other.txt"));
    Choose("mnuExtract", Write("letter.txt", "to a@b.org and c@d.org"));
    EXPECT_CALL(platform, ReportFailure(_));
    Choose("mnuSave", folder.filePath(QStringLiteral("none/saved.txt")).toStdString());
    EXPECT_THAT(books.Books(), ElementsAre(second, first));
    const std::string saved = folder.filePath(QStringLiteral("saved.txt")).toStdString();
    Choose("mnuSave", saved);
    EXPECT_THAT(books.Books(), ElementsAre(saved, second, first));
}

TEST_F(Form1BarTest, ABookOfTheListIsOpened) {
    const std::string file = Write("a&b.txt");
    books.Add(Write("older.txt"));
    books.Add(file);
    QList<QAction*> shown = Books();
    ASSERT_EQ(shown.size(), 5);
    EXPECT_TRUE(shown[0]->text().startsWith(QStringLiteral("&1  a&&b.txt  (")));
    EXPECT_EQ(shown[0]->toolTip().toStdString(), file);
    EXPECT_TRUE(shown[2]->isSeparator());
    shown[0]->trigger();
    EXPECT_EQ(form1.Caption, "Orvik - " + file);
    // One that is gone is told of.
    std::remove(file.c_str());
    EXPECT_CALL(platform, ShowBox(_)).WillOnce(Return(Answer::OK));
    Books()[0]->trigger();
    EXPECT_EQ(form1.Caption, "Orvik - " + file);
}

TEST_F(Form1BarTest, TheListIsClearedAndSwitchedOff) {
    books.Add("/b/1.txt");
    Books();
    Find<QAction>("clearBooks").trigger();
    EXPECT_THAT(books.Books(), IsEmpty());
    EXPECT_EQ(Books()[0]->text(), QStringLiteral("No books yet"));
    EXPECT_FALSE(Find<QAction>("clearBooks").isEnabled());
    EXPECT_TRUE(Find<QAction>("rememberBooks").isChecked());
    Find<QAction>("rememberBooks").trigger();
    EXPECT_EQ(Books()[0]->text(), QStringLiteral("No books are remembered"));
    EXPECT_FALSE(Find<QAction>("rememberBooks").isChecked());
    Choose("mnuOpen", Write("book.txt"));
    EXPECT_THAT(books.Books(), IsEmpty());
}

TEST_F(Form1BarTest, AKeyShowsTheList) {
    Show();
    window.activateWindow();
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Find<QMenu>("booksMenu").isVisible());
    Find<QMenu>("booksMenu").close();
}

TEST_F(Form1BarTest, ItIsHiddenAndShownByItsMenuAndRemembersIt) {
    const QString file = folder.filePath(QStringLiteral("window.conf"));
    window.rememberIn(file);
    Show();
    EXPECT_TRUE(Bar().isVisible());
    const double inside = form1.ScaleHeight;
    const int bar_height = Bar().height();
    const auto choose = [](Form1Window& of) {
        const std::unique_ptr<QMenu> menu(of.createPopupMenu());
        ASSERT_EQ(menu->actions().size(), 1);
        EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("Show the &tool bar"));
        menu->actions()[0]->trigger();
    };
    choose(window);
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(form1.ScaleHeight, inside + bar_height * 15);
    EXPECT_EQ(window.centralWidget()->y(), window.menuBar()->height());
    Form1Window next(module1, desktop, books);
    next.rememberIn(file);
    auto& next_bar = *next.findChild<QToolBar*>(QStringLiteral("toolBar"));
    EXPECT_TRUE(next_bar.isHidden());
    choose(next);
    EXPECT_FALSE(next_bar.isHidden());
    choose(window);
    EXPECT_TRUE(Bar().isVisible());
    EXPECT_EQ(form1.ScaleHeight, inside);
}

// With the mouse from the menu bar, with the keys from a heading.
TEST_F(Form1BarTest, AHiddenBarIsShownFromElsewhere) {
    Show();
    Find<QAction>("toolBarWanted").trigger();
    EXPECT_TRUE(Find<QWidget>("List2Heading").actions().contains(&Find<QAction>("toolBarWanted")));
    QPoint at(window.menuBar()->width() - 2, 2);
    QContextMenuEvent click(QContextMenuEvent::Mouse, at, window.mapToGlobal(at));
    QCoreApplication::sendEvent(&window, &click);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    menu->actions()[0]->trigger();
    menu->close();
    EXPECT_TRUE(Bar().isVisible());
}

// In an empty window most of the bar is disabled.
TEST_F(Form1BarTest, ADisabledButtonShowsTheBarsMenuToo) {
    Show();
    Settle();
    ASSERT_EQ(Enabled(), "O---F-");
    for (const char* const name : {"barSave", "barUndo", "barFind", "barMove"}) {
        QToolButton& button = ButtonOf(name);
        QContextMenuEvent click(
            QContextMenuEvent::Mouse, QPoint(5, 5), button.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&button, &click);
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr) << name;
        EXPECT_TRUE(menu->actions().contains(&Find<QAction>("toolBarWanted")));
        menu->close();
    }
}

TEST_F(Form1BarTest, ALongNameLeavesTheListOfBooksNarrow) {
    const std::string book = Write((std::string(200, 'L') + ".txt").c_str());
    Choose("mnuOpen", book);
    const QString row = Books().front()->text();
    EXPECT_LT(row.size(), 120) << row.toStdString();
    EXPECT_THAT(row.toStdString(), testing::HasSubstr("L.txt  ("));
    EXPECT_TRUE(Books().front()->toolTip().contains(QStringLiteral("LLLL")));
}

TEST_F(Form1BarTest, ALowWindowHasNeitherBarNorHeadings) {
    Show();
    List(kThree);
    const int line = window.fontMetrics().lineSpacing();
    const auto visible = [this] {
        EXPECT_EQ(Bar().isVisible(), Find<QWidget>("List1Heading").isVisible());
        EXPECT_EQ(Bar().isVisible(), Find<QWidget>("List2Heading").isVisible());
        return Bar().isVisible();
    };
    for (int round = 0; round < 2; ++round) {
        window.resize(400, 12 * line);
        Settle();
        EXPECT_TRUE(visible());
        window.resize(400, 12 * line - 1);
        Settle();
        EXPECT_FALSE(visible());
        EXPECT_EQ(Find<QListView>("List1").y(), 0);
        EXPECT_EQ(window.centralWidget()->y(), window.menuBar()->height());
    }
    EXPECT_TRUE(Find<QAction>("toolBarWanted").isChecked());
}

TEST_F(Form1BarTest, ANarrowWindowShowsIconsAlone) {
    Show();
    window.resize(900, 400);
    Settle();
    EXPECT_EQ(Bar().toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    window.resize(230, 400);
    Settle();
    EXPECT_EQ(Bar().toolButtonStyle(), Qt::ToolButtonIconOnly);
    for (const char* const name : kNames) {
        EXPECT_TRUE(ButtonOf(name).isVisible()) << name;
        EXPECT_FALSE(Find<QAction>(name).icon().isNull()) << name;
    }
}

TEST_F(Form1BarTest, HeadingsNameTheListsAndStandOverThem) {
    Show();
    List(kThree);
    for (const auto& [list, name] :
         {std::pair{"List1", "E-mail addresses"}, std::pair{"List2", "Nicknames"}}) {
        const auto& heading = Find<QAbstractButton>(std::string(list) + "Heading");
        const auto& view = Find<QListView>(list);
        EXPECT_EQ(heading.text().toStdString(), name);
        EXPECT_EQ(heading.accessibleName(), view.accessibleName());
        EXPECT_EQ(heading.x(), view.x());
        EXPECT_EQ(heading.width(), view.width());
        EXPECT_EQ(heading.geometry().bottom() + 1, view.y());
    }
    SwitchEditMode();
    EXPECT_FALSE(Find<QWidget>("List1Heading").isVisible());
}

TEST_F(Form1BarTest, AHeadingRunsItsSortButton) {
    Show();
    List("A2\r\nA1\r\nA3\r\n-nick-\r\nAl\r\nBo\r\nAa\r\n");
    auto& addresses = Find<QAbstractButton>("List1Heading");
    auto& nicknames = Find<QAbstractButton>("List2Heading");
    EXPECT_EQ(addresses.toolTip(), QStringLiteral("Sort by E-Mail Address"));
    QTest::mouseClick(&addresses, Qt::LeftButton);
    EXPECT_THAT(ItemsOf(form1.List1), ElementsAre("A1", "A2", "A3"));
    EXPECT_EQ(module1.history.UndoTitle(), "Sort by E-Mail Address");
    nicknames.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&nicknames, Qt::Key_Return);
    EXPECT_THAT(ItemsOf(form1.List2), ElementsAre("Aa", "Al", "Bo"));
    addresses.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&addresses, Qt::Key_Space);
    EXPECT_THAT(ItemsOf(form1.List1), ElementsAre("A1", "A2", "A3"));
    // While the button is not to be pressed, nor is the heading.
    form1.cmdEmail.Enabled = false;
    window.sync();
    EXPECT_FALSE(addresses.isEnabled());
}

}  // namespace
}  // namespace orvik
