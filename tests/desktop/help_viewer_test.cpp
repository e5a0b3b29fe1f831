#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QWindow>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/module1.h"
#include "desktop/help/help_book.h"
#include "desktop/help_viewer_fixture.h"
#include "desktop/session/qt_platform.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/small_windows.h"
#include "platform/system_files.h"
#include "program/program.h"

namespace orvik {
namespace {

using test::HelpFile;
using test::HelpViewerTest;
using test::HelpWindows;

TEST_F(HelpViewerTest, ATopicIsShown) {
    Topic("secWin", "screenshot.html");
    const QMainWindow& window = Window("secWin");
    EXPECT_EQ(Page(window).documentTitle(), QStringLiteral("The windows, in pictures"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("The windows, in pictures - Orvik Help"));
    EXPECT_TRUE(QFile::exists(Collection()));
}

TEST_F(HelpViewerTest, ATopicIsShownAtItsAnchor) {
    Topic("Stripped", "conversions.html#pim");
    const QTextBrowser& page = Page(Window("Stripped"));
    EXPECT_EQ(page.source().fragment(), QStringLiteral("pim"));
    QTRY_VERIFY(page.verticalScrollBar()->value() > 0);
}

TEST_F(HelpViewerTest, ContentsAndIndexRaiseTheirPane) {
    viewer.show(HelpCommand::Index, HelpFile() + ">SecWin", "");
    EXPECT_EQ(Find<QTabWidget>("panes").currentIndex(), 1);
    EXPECT_EQ(Page(Window("secWin")).documentTitle(), QStringLiteral("Orvik Help"));
    viewer.show(HelpCommand::Contents, HelpFile() + ">SecWin", "");
    EXPECT_EQ(Find<QTabWidget>("panes").currentIndex(), 0);
}

TEST_F(HelpViewerTest, TheVersionStandsAtTheFootOfTheContents) {
    viewer.show(HelpCommand::Contents, HelpFile() + ">SecWin", "");
    const auto& version = Find<QLabel>("version");
    EXPECT_EQ(version.text(), QStringLiteral("Orvik, version 7.8.9"));
    EXPECT_GT(version.mapTo(version.window(), QPoint()).y(),
              Find<QWidget>("contents").mapTo(version.window(), QPoint()).y());
}

TEST_F(HelpViewerTest, BothSpellingsAreOneWindow) {
    Topic("secWin", "screenshot.html");
    const QMainWindow* const first = &Window("secWin");
    Topic("SecWin", "install.html");
    EXPECT_EQ(&Window("secWin"), first);
}

TEST_F(HelpViewerTest, AClosedWindowOpensAgain) {
    Topic("secWin", "screenshot.html");
    Window("secWin").close();
    EXPECT_TRUE(HelpWindows().isEmpty());
    Topic("secWin", "screenshot.html");
    Window("secWin");
}

TEST_F(HelpViewerTest, StrippedIsThePageAlone) {
    Topic("Stripped", "install.html");
    QMainWindow& window = Window("Stripped");
    EXPECT_EQ(window.findChild<QTabWidget*>(), nullptr);
    EXPECT_EQ(Page(window).documentTitle(), QStringLiteral("Installing and starting Orvik"));
    QTest::keyClick(&Page(window), Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(HelpViewerTest, TheContentsLeadToPages) {
    Topic("secWin", "index.html");
    auto& contents = Find<QTreeView>("contents");
    QTRY_VERIFY(contents.model()->rowCount() == 1);
    const QModelIndex first = contents.model()->index(0, 0);
    QTRY_VERIFY(contents.isExpanded(first));
    const QModelIndex keys =
        contents.model()
            ->match(contents.model()->index(0, 0, first), Qt::DisplayRole, QStringLiteral("Keys"))
            .value(0);
    ASSERT_TRUE(keys.isValid());
    contents.scrollTo(keys);
    QTest::mouseClick(contents.viewport(), Qt::LeftButton, {}, contents.visualRect(keys).center());
    EXPECT_EQ(Page(Window("secWin")).documentTitle(), QStringLiteral("Keys"));
    // Back, and the contents follow.
    Page(Window("secWin")).backward();
    EXPECT_EQ(contents.currentIndex(), first);
}

TEST_F(HelpViewerTest, TheIndexFindsWhatBeginsWithAWord) {
    viewer.show(HelpCommand::Index, HelpFile() + ">SecWin", "");
    auto& index = Find<QListView>("index");
    QTRY_VERIFY(index.model()->rowCount() > 50);
    auto& word = Find<QLineEdit>("indexWord");
    QTest::keyClicks(&word, QStringLiteral("merg"));
    QTest::keyClick(&word, Qt::Key_Return);
    QTRY_COMPARE(Page(Window("secWin")).documentTitle(), QStringLiteral("Merging two books"));
}

TEST_F(HelpViewerTest, TheSearchFindsPagesWithAllWords) {
    Topic("secWin", "index.html");
    Find<QTabWidget>("panes").setCurrentIndex(2);
    auto& words = Find<QLineEdit>("searchWords");
    auto& hits = Find<QListWidget>("hits");
    QTest::keyClicks(&words, QStringLiteral("pegasus BACKSLASH"));
    EXPECT_EQ(hits.count(), 2);
    EXPECT_EQ(hits.item(0)->text(), QStringLiteral("Pegasus Mail"));
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(Page(Window("secWin")).documentTitle(), QStringLiteral("Pegasus Mail"));
    words.setText(QStringLiteral("xyzzy"));
    EXPECT_EQ(hits.count(), 0);
    words.clear();
    EXPECT_EQ(hits.count(), 0);
}

TEST_F(HelpViewerTest, TextIsFoundInThePageAndAroundItsEnd) {
    Topic("Stripped", "sorting.html");
    QMainWindow& window = Window("Stripped");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    auto& wanted = *window.findChild<QLineEdit*>(QStringLiteral("findText"));
    ASSERT_TRUE(wanted.isVisible());
    QTest::keyClicks(&wanted, QStringLiteral("exactly 500"));
    QTest::keyClick(&wanted, Qt::Key_Return);
    const int place = Page(window).textCursor().position();
    EXPECT_EQ(Page(window).textCursor().selectedText(), QStringLiteral("exactly 500"));
    QTest::keyClick(&wanted, Qt::Key_Return);
    EXPECT_EQ(Page(window).textCursor().position(), place);
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("findNotice"))->text(),
              QStringLiteral("From the start"));
    QTest::keyClicks(&wanted, QStringLiteral("x"));
    QTest::keyClick(&wanted, Qt::Key_Return);
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("findNotice"))->text(),
              QStringLiteral("Not found"));
    QTest::keyClick(&wanted, Qt::Key_Escape);
    EXPECT_FALSE(wanted.isVisible());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(HelpViewerTest, AMissingFileIsReportedOnThePage) {
    const std::string file = folder.path().toStdString() + "\\help.chm";
    viewer.show(HelpCommand::Contents, file + ">SecWin", "");
    EXPECT_NE(Text(Window("secWin")).find(folder.path().toStdString() + "/orvik.qch"),
              std::string::npos);
    // Found later, it takes the page's place.
    Topic("secWin", "install.html");
    EXPECT_EQ(Page(Window("secWin")).documentTitle(),
              QStringLiteral("Installing and starting Orvik"));
}

TEST_F(HelpViewerTest, AnyOtherFileIsMissing) {
    const std::string bin = QCoreApplication::applicationDirPath().toStdString();
    viewer.show(HelpCommand::Topic, bin + "\\HelpTutorial.chm>Stripped", "install.html");
    EXPECT_NE(Text(Window("Stripped")).find(bin + "/HelpTutorial.chm"), std::string::npos);
}

TEST_F(HelpViewerTest, AMissingTopicIsReportedOnThePage) {
    Topic("Stripped", "nothing<b>.html");
    EXPECT_NE(Text(Window("Stripped")).find("nothing<b>.html"), std::string::npos);
    EXPECT_EQ(Page(Window("Stripped")).documentTitle(), QStringLiteral("Page not found"));
}

TEST_F(HelpViewerTest, ADamagedHelpFileIsReportedOnThePage) {
    Write(folder.filePath(QStringLiteral("orvik.qch")), "no help");
    viewer.show(HelpCommand::Topic, folder.path().toStdString() + "\\help.chm>secWin", "x.html");
    EXPECT_NE(Text(Window("secWin")).find("cannot be read"), std::string::npos);
}

TEST_F(HelpViewerTest, ADamagedCollectionIsMadeAnew) {
    for (const QByteArray& damaged : {QByteArray(), QByteArray("SQLite"), QByteArray(5000, 'x')}) {
        Write(Collection(), damaged);
        HelpViewer other(QFileInfo(Collection()).path());
        other.show(HelpCommand::Topic, HelpFile() + ">secWin", "install.html");
        EXPECT_EQ(Page(Window("secWin")).documentTitle(),
                  QStringLiteral("Installing and starting Orvik"));
    }
}

TEST_F(HelpViewerTest, ACollectionOfAnOlderFileIsMadeAnew) {
    const QString file = folder.filePath(QStringLiteral("orvik.qch"));
    const QString cache = folder.filePath(QStringLiteral("cache"));
    const QUrl page = HelpBook::page(QStringLiteral("install.html"));
    ASSERT_TRUE(
        QFile::copy(HelpPlaces(QString::fromStdString(HelpFile()).replace(u'\\', u'/'))[1], file));
    EXPECT_FALSE(HelpBook(file, cache).data(page).isEmpty());
    QFile touched(file);
    ASSERT_TRUE(touched.open(QFile::ReadWrite));
    touched.setFileTime(QDateTime::currentDateTime().addDays(-3), QFile::FileModificationTime);
    touched.close();
    const HelpBook book(file, cache);
    EXPECT_EQ(book.problem(), QString());
    EXPECT_FALSE(book.data(page).isEmpty());
}

TEST_F(HelpViewerTest, ACacheThatCannotBeWrittenIsReplaced) {
    Write(folder.filePath(QStringLiteral("cache")), "a file");
    Topic("secWin", "install.html");
    EXPECT_EQ(Page(Window("secWin")).documentTitle(),
              QStringLiteral("Installing and starting Orvik"));
}

TEST_F(HelpViewerTest, EveryPartOfAWindowHasAnAccessibleName) {
    viewer.show(HelpCommand::Contents, HelpFile() + ">SecWin", "");
    for (const char* const name :
         {"page", "panes", "contents", "indexWord", "index", "searchWords", "hits", "findText"}) {
        EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
    }
}

// A click that comes from the window system, which a modal window may keep from its receiver.
void ClickOn(QWidget& widget) {
    QWidget& window = *widget.window();
    QTest::mouseClick(
        window.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&window, widget.rect().center()));
    QCoreApplication::processEvents();
}

class HelpUnderAModalFormTest : public HelpViewerTest {
 protected:
    QToolButton& FirstPage() {
        for (auto* const button : Window("secWin").findChildren<QToolButton*>()) {
            if (button->text() == QStringLiteral("First page")) {
                return *button;
            }
        }
        throw std::runtime_error("no button for the first page");
    }

    const bool own_settings = qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    const bool own_cache = qputenv("XDG_CACHE_HOME", folder.path().toLocal8Bit());
    Desktop desktop;
    SystemFiles files{false};
    RecentBooks books;
    QtPlatform platform{desktop, files, books};
    Program program{platform, files};
    Module1& module = program.module;
    Form1Window window{module, desktop, books};
    std::unique_ptr<FormWindow> preferences = MakeWindow(module, module.form2, desktop, &window);
};

TEST_F(HelpUnderAModalFormTest, HelpCanBeUsedWhetherItWasOpenBeforeOrNot) {
    platform.SaveSetting("Settings", "Open", "1");
    platform.SaveSetting("Settings", "textSep", "5");
    window.show();
    for (const bool before : {true, false}) {
        if (before) {
            platform.ShowHelp(HelpCommand::Topic, HelpFile() + ">secWin", "screenshot.html");
        }
        bool main_clicked = false;
        bool ran = false;
        QTimer::singleShot(0, [&] {
            if (!before) {
                platform.ShowHelp(HelpCommand::Topic, HelpFile() + ">secWin", "screenshot.html");
            }
            ClickOn(FirstPage());
            EXPECT_EQ(Page(Window("secWin")).documentTitle(), QStringLiteral("Orvik Help"));
            auto& button = *window.findChild<QPushButton*>(QStringLiteral("cmdEmail"));
            QObject::connect(&button, &QPushButton::clicked, [&] { main_clicked = true; });
            ClickOn(button);
            ran = true;
            module.form2.Unload();
        });
        desktop.run([&] { module.form2.Show(Showing::Modal); });
        EXPECT_TRUE(ran);
        EXPECT_FALSE(main_clicked);
        Window("secWin").close();
    }
}

TEST_F(HelpUnderAModalFormTest, ABoxBelongsToTheProgramAndNotToTheHelp) {
    window.show();
    platform.ShowHelp(HelpCommand::Topic, HelpFile() + ">secWin", "screenshot.html");
    QTRY_COMPARE(QApplication::activeWindow(), &Window("secWin"));
    EXPECT_EQ(desktop.frontWindow(), &window);
}

}  // namespace
}  // namespace orvik
