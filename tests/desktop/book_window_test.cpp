// The shell of a Book window: opening, cancelling, closing, and what it remembers.

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QUrl>

#include "desktop/book/welcome_page.h"
#include "desktop/book_window_fixture.h"
#include "desktop/modal_user.h"
#include "desktop/views/link_button.h"

namespace orvik {
namespace {

using book::Column;

class BookShellTest : public test::BookWindowTest {
 protected:
    // What a drag of files over the window would do.
    Qt::DropAction Drag(const QList<QUrl>& urls, bool drops) {
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted() || !drops) {
            return enter.isAccepted() ? enter.dropAction() : Qt::IgnoreAction;
        }
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &drop);
        return drop.dropAction();
    }
    [[nodiscard]] QUrl Url(const char* name) const {
        return QUrl::fromLocalFile(QString::fromStdString(Path(name)));
    }
    void Change() {
        OpenText(Card("Ada"));
        Show();
        Type(0, Column::Name, "Eve");
    }

    QMimeData data;
};

TEST_F(BookShellTest, AnEmptyWindowSaysHowToBegin) {
    Show();
    EXPECT_TRUE(Find<WelcomePage>("welcomePage").isVisible());
    EXPECT_FALSE(Table().isVisible());
    EXPECT_EQ(Counts(), "");
    EXPECT_EQ(Title(), "Orvik - Address book[*]");
    QSignalSpy asked(&Find<QAction>("bookOpen"), &QAction::triggered);
    const test::ModalUser user({[] { test::ModalUser::dialog().reject(); }});
    Find<LinkButton>("welcomeOpen").click();
    EXPECT_EQ(asked.size(), 1);
    OpenText(Card("Ada"));
    EXPECT_FALSE(Find<WelcomePage>("welcomePage").isVisible());
    EXPECT_TRUE(Table().isVisible());
    EXPECT_EQ(Title(), "Orvik - book.vcf[*]");
}

TEST_F(BookShellTest, DroppedFilesAreOpenedTogether) {
    Write("a.vcf", Card("Al"));
    Write("b.csv", "Name,Email\nBo,bo@a.example\nCy,cy@a.example\n");
    Write("c.vcf", Card("Di"));
    // Also where no window becomes active.
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(Drag({Url("a.vcf"), Url("b.csv"), Url("c.vcf")}, true), Qt::CopyAction);
    EXPECT_EQ(window.document().thereCount(), 0U) << "while the other program waits";
    QCoreApplication::processEvents();
    Wait();
    EXPECT_EQ(Names(), "Al Bo Cy Di");
    EXPECT_EQ(Title(), "Orvik - a.vcf, b.csv and 1 more[*]");
    EXPECT_FALSE(window.isWindowModified()) << "nothing is to be saved";
    Do("bookUndo");
    EXPECT_EQ(Names(), "");
    EXPECT_EQ(Drag({QUrl(QStringLiteral("https://example.org/a.vcf"))}, false), Qt::IgnoreAction);
}

TEST_F(BookShellTest, OpeningAddsToWhatIsOpen) {
    Write("a.vcf", Card("Al"));
    Write("b.vcf", Card("Bo"));
    Open({"a.vcf"});
    Open({"b.vcf"});
    EXPECT_EQ(Names(), "Al Bo");
    Open({"a.vcf"});
    EXPECT_EQ(Names(), "Al Bo Al");
    EXPECT_THAT(Told(), testing::StartsWith("a.vcf: This is the same file as"));
    window.open({{"text.vcf", Card("Di")}});
    Wait();
    EXPECT_EQ(Names(), "Al Bo Al Di");
}

TEST_F(BookShellTest, WhatIsNoBookIsToldOf) {
    Write("a.vcf", Card("Al"));
    Write("b.bin",
          std::string("\x7F"
                      "ELF\0\0\0",
                      7));
    Open({"b.bin", "a.vcf", "none.vcf"});
    EXPECT_EQ(Names(), "Al");
    const QStringList told = QString::fromStdString(Told()).split(u'\n');
    ASSERT_EQ(told.size(), 2);
    EXPECT_TRUE(told[0].startsWith(QStringLiteral("b.bin: this is"))) << told[0].toStdString();
    EXPECT_TRUE(told[1].startsWith(QStringLiteral("none.vcf: "))) << told[1].toStdString();
    Show();
    Find<LinkButton>("bookQuietLineLink").click();
    EXPECT_EQ(Find<QTabWidget>("bookPanel").currentIndex(), 1);
}

TEST_F(BookShellTest, AnAssumedCharsetIsToldOf) {
    OpenText(Card("M\xFCller"));
    EXPECT_THAT(Told(), testing::StartsWith("book.vcf: "));
    EXPECT_THAT(Told(), testing::HasSubstr("windows-1252"));
}

TEST_F(BookShellTest, ACancelledReadingChangesNothing) {
    OpenText(Card("Ada"));
    Show();
    Write("more.vcf", Card("Al"));
    Write("held.vcf", Card("Bo"));
    window.open({{Path("more.vcf")}, {Path("held.vcf")}});
    ASSERT_TRUE(files.reached.tryAcquire(1, 10'000));
    QCoreApplication::processEvents();
    // The window lives meanwhile, and nothing can be changed.
    EXPECT_TRUE(Find<QWidget>("workBar").isVisible());
    EXPECT_TRUE(Find<QLabel>("workText").text().startsWith(QStringLiteral("Reading")));
    EXPECT_FALSE(Find<QAction>("bookOpen").isEnabled());
    EXPECT_FALSE(Find<QAction>("bookAdd").isEnabled());
    EXPECT_TRUE(window.document().isFrozen());
    EXPECT_EQ(Drag({Url("more.vcf")}, false), Qt::IgnoreAction);
    window.open({{Path("more.vcf")}});
    EXPECT_NE(Told(), "");
    QTest::keyClick(&Table(), Qt::Key_Escape);
    files.goes_on.release();
    Wait();
    EXPECT_EQ(Told(), "Opening was cancelled. Nothing has changed.");
    EXPECT_EQ(Names(), "Ada");
    EXPECT_FALSE(window.document().isFrozen());
    EXPECT_FALSE(Find<QWidget>("workBar").isVisible());
    EXPECT_TRUE(Find<QAction>("bookAdd").isEnabled());
    EXPECT_EQ(Title(), "Orvik - book.vcf[*]");
    Open({"more.vcf"});
    EXPECT_EQ(Names(), "Ada Al");
}

TEST_F(BookShellTest, TheButtonCancelsToo) {
    Show();
    Write("held.vcf", Card("Bo"));
    window.open({{Path("held.vcf")}});
    ASSERT_TRUE(files.reached.tryAcquire(1, 10'000));
    QCoreApplication::processEvents();
    Find<QPushButton>("workCancel").click();
    files.goes_on.release();
    Wait();
    EXPECT_EQ(window.document().count(), 0U);
    EXPECT_TRUE(Find<WelcomePage>("welcomePage").isVisible());
}

TEST_F(BookShellTest, ClosingAsksAboutWhatIsInNoFile) {
    Change();
    EXPECT_TRUE(window.isWindowModified());
    QStringList buttons;
    const test::ModalUser user({[&buttons] {
                                    QMessageBox& box = test::ModalUser::box();
                                    for (const QAbstractButton* one : box.buttons()) {
                                        buttons << one->text();
                                    }
                                    test::ModalUser::answer(QMessageBox::Cancel);
                                },
                                [] {
                                    for (QAbstractButton* one : test::ModalUser::box().buttons()) {
                                        if (one->text() == QStringLiteral("&Discard")) {
                                            one->click();
                                            return;
                                        }
                                    }
                                }});
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(buttons.contains(QStringLiteral("&Move...")));
    QSignalSpy closed(&window, &BookWindow::closed);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(closed.size(), 1);
    EXPECT_EQ(user.done(), 2U);
}

TEST_F(BookShellTest, ClosingAsksNothingWhereNothingChanged) {
    EXPECT_EQ(Find<QAction>("bookClose").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_W));
    Change();
    Do("bookUndo");
    EXPECT_TRUE(window.close());
}

TEST_F(BookShellTest, WhatWasSavedIsNotAskedAbout) {
    Change();
    window.document().markSaved();
    EXPECT_FALSE(window.isWindowModified());
    Do("bookUndo");
    EXPECT_TRUE(window.isWindowModified()) << "the file holds something else";
    Do("bookRedo");
    Write("more.vcf", Card("Al"));
    Open({"more.vcf"});
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(window.close());
}

TEST_F(BookShellTest, PlaceAndPartsComeBack) {
    const QString state = folder.filePath(QStringLiteral("state.conf"));
    OpenText(Card("Ada"));
    window.rememberIn(state);
    Show();
    window.resize(900, 500);
    Find<QAction>("column3").setChecked(false);
    Table().horizontalHeader()->moveSection(0, 2);
    Table().setColumnWidth(1, 222);
    Do("sort0");
    Wait();
    Find<QSplitter>("bookSplitter").setSizes({600, 300});
    const QList<int> sizes = Find<QSplitter>("bookSplitter").sizes();
    EXPECT_TRUE(window.close());

    BookWindow again(files, books);
    again.rememberIn(state);
    again.show();
    EXPECT_EQ(again.size(), QSize(900, 500));
    auto& table = *again.findChild<BookTable*>(QStringLiteral("bookTable"));
    EXPECT_TRUE(table.isColumnHidden(3));
    EXPECT_FALSE(again.findChild<QAction*>(QStringLiteral("column3"))->isChecked());
    EXPECT_EQ(table.horizontalHeader()->visualIndex(0), 2);
    EXPECT_EQ(table.columnWidth(1), 222);
    EXPECT_EQ(table.horizontalHeader()->sortIndicatorSection(), -1) << "nothing is sorted yet";
    again.open({{Path("book.vcf")}});
    ASSERT_TRUE(QTest::qWaitFor([&again] { return !again.worker().isBusy(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(again.findChild<QSplitter*>(QStringLiteral("bookSplitter"))->sizes(), sizes);
    again.document().markSaved();
}

TEST_F(BookShellTest, ABrokenStateIsLeftAlone) {
    const QString state = folder.filePath(QStringLiteral("state.conf"));
    std::ofstream(state.toStdString()) << "[book]\nplace=x\ncolumns=AAAA\nsplitter=AAAA\n";
    window.rememberIn(state);
    EXPECT_FALSE(Table().isColumnHidden(0));
    // One column always stays.
    for (int i = 0; i < 7; ++i) {
        Find<QAction>(("column" + std::to_string(i)).c_str()).trigger();
    }
    EXPECT_FALSE(Table().isColumnHidden(6));
    EXPECT_FALSE(Find<QAction>("column6").isEnabled());
}

TEST_F(BookShellTest, APageCanAskForARecord) {
    OpenText(Card("Ada") + Card("Bo") + Card("Cy"));
    Filter("ada");
    window.showRecord(2);
    EXPECT_EQ(Find<QLineEdit>("filterText").text(), QString()) << "the filter hid it";
    EXPECT_EQ(Table().selected(), (BookDocument::Numbers{2}));
    Do("bookDelete");
    window.showRecord(2);
    EXPECT_EQ(Told(), "This record is not there any more.");
    window.document().markSaved();
}

TEST_F(BookShellTest, AllIsDoneWithKeysAlone) {
    OpenText(Card("Zoe") + Card("Bo") + Card("Ada"));
    Show();
    Table().setFocus();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    QLineEdit& filter = Find<QLineEdit>("filterText");
    EXPECT_EQ(QApplication::focusWidget(), &filter);
    QTest::keyClicks(&filter, QStringLiteral("o"));
    Wait();
    EXPECT_EQ(Names(), "Zoe Bo");
    QTest::keyClick(&filter, Qt::Key_Escape);
    EXPECT_EQ(Names(), "Zoe Bo Ada");
    EXPECT_EQ(QApplication::focusWidget(), &Table());
    // Letters go to the filter.
    QTest::keyClick(&Table(), Qt::Key_A);
    EXPECT_EQ(filter.text(), QStringLiteral("a"));
    QTest::keyClick(&filter, Qt::Key_D);
    Wait();
    EXPECT_EQ(filter.text(), QStringLiteral("ad"));
    EXPECT_EQ(Names(), "Ada");
    QTest::keyClick(&filter, Qt::Key_Return);
    QTest::keyClick(&Table(), Qt::Key_Home);
    QTest::keyClick(&Table(), Qt::Key_F2);
    QLineEdit& cell = Find<QLineEdit>("cellEditor");
    cell.selectAll();
    QTest::keyClicks(&cell, QStringLiteral("Eve"));
    End(cell);
    EXPECT_EQ(Names(), "Eve");
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Names(), "Ada");
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Names(), "Eve");
    QTest::keyClick(&Table(), Qt::Key_Delete);
    EXPECT_EQ(Names(), "");
    QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(Find<QTabWidget>("bookPanel").currentIndex(), 1);
    // Tab leaves the table.
    Filter("");
    Table().setFocus();
    QTest::keyClick(&Table(), Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), &Table());
    window.document().markSaved();
}

TEST_F(BookShellTest, AButtonPressedByItsKeyTakesWhatIsTyped) {
    OpenText(Card("Ada") + Card("Ada"));
    Show();
    Find<QTabWidget>("bookPanel").setCurrentIndex(2);
    Table().setCurrentIndex(Place(0, Column::Name));
    Do("bookChange");
    QLineEdit& cell = Find<QLineEdit>("cellEditor");
    cell.selectAll();
    QTest::keyClicks(&cell, QStringLiteral("Eve"));
    Find<QPushButton>("duplicatesLook").animateClick();
    EXPECT_EQ(Names(), "Eve Ada");
    EXPECT_FALSE(IsTyping());
    ASSERT_TRUE(QTest::qWaitFor([this] { return window.worker().isBusy(); }));
    Wait();
    window.document().markSaved();
}

TEST_F(BookShellTest, WordsOfAnyLengthDoNotWidenTheWindow) {
    OpenText(Card(std::string(3000, 'W')));
    Table().selectAll();
    Show();
    EXPECT_LT(window.minimumSizeHint().width(), 1080);
    window.open({{Path(std::string(200, 'x').c_str())}});
    Wait();
    EXPECT_FALSE(Told().empty());
    EXPECT_LT(window.minimumSizeHint().width(), 1080);
}

TEST_F(BookShellTest, OpenedFilesAreRemembered) {
    RecentBooks kept(files, Path("books"), Path("shared"));
    BookWindow other(files, kept);
    Write("a.vcf", Card("Al"));
    Write("b.bin",
          std::string("\x7F"
                      "ELF\0\0\0",
                      7));
    other.open({{Path("a.vcf")}, {Path("b.bin")}, {"text.vcf", Card("Di")}});
    ASSERT_TRUE(QTest::qWaitFor([&other] { return !other.worker().isBusy(); }));
    EXPECT_THAT(kept.Books(), testing::ElementsAre(Path("a.vcf")));
    auto& menu = *other.findChild<QMenu*>(QStringLiteral("booksMenu"));
    emit menu.aboutToShow();
    ASSERT_FALSE(menu.actions().isEmpty());
    menu.actions().front()->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&other] { return !other.worker().isBusy(); }));
    EXPECT_EQ(other.document().thereCount(), 3U);
}

TEST_F(BookShellTest, EveryControlHasANameAndIsSpoken) {
    OpenText(Card("Ada"));
    for (const char* const name :
         {"bookTable", "filterText", "bookPanel", "workProgress", "workCancel", "bookStatusBar"}) {
        EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
    }
    const QModelIndex ada = Table().model()->index(0, 0);
    EXPECT_EQ(ada.data(Qt::AccessibleTextRole).toString(), QStringLiteral("Ada"));
}

TEST_F(BookShellTest, NamesThatLieAreShownAsTheyAre) {
    OpenText(
        Card("A\xE2\x80\xAE"
             "da",
             "NOTE:<b>x</b>\\n\x01y\n"));
    EXPECT_EQ(Cell(0, Column::Name), "A\\u202Eda");
    EXPECT_EQ(Cell(0, Column::Notes), "<b>x</b> \\x01y");
    EXPECT_TRUE(Table()
                    .model()
                    ->index(0, static_cast<int>(Column::Notes))
                    .data(Qt::ToolTipRole)
                    .toString()
                    .contains(QStringLiteral("&lt;b&gt;")));
}

}  // namespace
}  // namespace orvik
