// What the main window says without asking: the quiet line, the empty window, the modified mark.

#include <QAbstractButton>
#include <QTemporaryDir>
#include <QToolBar>
#include <fstream>

#include "desktop/form1_window_fixture.h"
#include "desktop/text/text_box_view.h"
#include "desktop/views/quiet_line.h"

namespace orvik {
namespace {

using test::kThree;
using testing::_;
using testing::Return;

class Form1NotesTest : public test::Form1WindowTest {
 protected:
    // What the quiet line says, empty while it is hidden.
    std::string Said() {
        const auto& line = Find<QuietLine>("quietLine");
        return line.isVisible() ? line.text().toStdString() : std::string();
    }
    void Follow(const char* link) {
        QTest::mouseClick(&Find<QAbstractButton>(link), Qt::LeftButton);
    }
    std::string Write(const char* name, const std::string& contents) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        std::ofstream(path.toStdString()) << contents;
        return path.toStdString();
    }
    void Run(const char* command) {
        EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::No));
        EXPECT_CALL(platform, SetClipboardText(_)).Times(testing::AnyNumber());
        EXPECT_CALL(platform, Yield()).Times(testing::AnyNumber());
        Find<QAction>(command).trigger();
    }
    void RunOnFile(const char* command, const std::string& file) {
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(file));
        Run(command);
    }
    void Paste(const char* command, const std::string& text) {
        EXPECT_CALL(platform, ClipboardText()).WillOnce(Return(text));
        Run(command);
    }
    bool NoteIsShown() { return Find<QWidget>("emptyNote").isVisible(); }

    QTemporaryDir folder;
};

TEST_F(Form1NotesTest, ACommandThatMayLoseEntriesIsToldOfAndUndone) {
    Show();
    List(kThree);
    const SharedText text = module1.WorkText;
    Run("mnuRemDup");
    EXPECT_EQ(Said(), "Remove Duplicates: 3 entries before, 0 now.");
    EXPECT_EQ(Find<QAbstractButton>("quietLineLink").text(), QStringLiteral("Undo"));
    Follow("quietLineLink");
    EXPECT_EQ(module1.WorkText, text);
    EXPECT_EQ(Said(), "");
}

TEST_F(Form1NotesTest, EachOfTheCommandsIsToldOf) {
    Show();
    const std::string two = "\"Di\" <A4>\r\n\"Ed\" <A5>\r\n";
    const std::string file = Write("two.txt", two);
    const auto expect = [&](const char* title, int before, int now) {
        EXPECT_EQ(Said(),
                  std::string(title) + ": " + std::to_string(before) + " entries before, " +
                      std::to_string(now) + " now.");
        List(kThree);
    };
    List(kThree);
    Run("mnuUn");
    expect("Unconvert", 3, 0);
    SetAscii(two);
    Run("mnuParse");
    EXPECT_EQ(Said().substr(0, 34), "Parse nicknames: 2 entries before,");
    List(kThree);
    Paste("mnuClearPaste", two);
    expect("Clear and Paste ASCII", 3, 2);
    Paste("mnuClearPasteNet4", "dn: cn=Al\r\nmail: A1\r\n\r\n");
    expect("Clear and Paste Netscape 4.xx format", 3, 1);
    Paste("mnuClearPasteNet3",
          "<p><DT><A HREF=\"mailto:a@b.org\" NICKNAME=\"Al\">Al</A><DD>\r\n</DL>\r\n");
    expect("Clear and Paste Netscape 3.x format", 3, 1);
    Paste("mnuPasteJuno", "Name:Al\r\nEmail:A1\r\n\r\n");
    EXPECT_EQ(Said().substr(0, 41), "Clear and Paste Juno format: 3 entries be");
    List(kThree);
    RunOnFile("mnuOpen", file);
    expect("Open file", 3, 2);
    RunOnFile("mnuMerge", file);
    expect("Merge files", 3, 5);
    RunOnFile("mnuExtract", Write("letter.txt", "to a@b.org and c@d.org, e@f.org g@h.org \r\n"));
    expect("Extract from file", 3, 4);
    form1.DeleteEntries({0, 2});
    window.sync();
    expect("Delete entries", 3, 1);
}

TEST_F(Form1NotesTest, ABookInAnEmptyWindowIsNotToldOf) {
    Show();
    RunOnFile("mnuOpen", Write("two.txt", "A1\r\nA2\r\n"));
    EXPECT_EQ(form1.List1.Items().size(), 2U);
    EXPECT_EQ(Said(), "");
}

TEST_F(Form1NotesTest, ItGoesAtTheNextCommand) {
    Show();
    for (const char* const next : {"mnuBoxCopy", "mnuAlphNick", "undo", "mnuEntEd"}) {
        List(kThree);
        Run("mnuRemDup");
        EXPECT_NE(Said(), "");
        // What is no command leaves it.
        ClickRow(Find<QListView>("List1"), 1);
        window.resize(window.size() + QSize(10, 10));
        EXPECT_NE(Said(), "");
        Run(next);
        EXPECT_EQ(Said(), "") << next;
    }
}

TEST_F(Form1NotesTest, InEditModeTheTextIsUndone) {
    Show();
    List(kThree);
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    const SharedText before = module1.WorkText;
    Run("mnuClear");
    EXPECT_EQ(Said(), "Clear: 3 entries before, 0 now.");
    Follow("quietLineLink");
    EXPECT_EQ(module1.WorkText, before);
    EXPECT_EQ(Said(), "");
    text.selectAll();
    Run("mnuDel");
    EXPECT_EQ(Said(), "Delete selection: 3 entries before, 0 now.");
    Paste("mnuPaste", "\"Di\" <A4>\r\n");
    EXPECT_EQ(Said(), "Paste clipboard content: 0 entries before, 1 now.");
    QTest::keyClick(&text, Qt::Key_X);
    EXPECT_EQ(Said(), "");
}

TEST_F(Form1NotesTest, TheLineStandsBelowEverythingAndWraps) {
    Show();
    List(kThree);
    window.resize(300, 400);
    Settle();
    const auto& line = Find<QWidget>("quietLine");
    const auto& button = Find<QWidget>("cmdEmail");
    Paste("mnuClearPasteNet4", "dn: cn=Al\r\nmail: A1\r\n\r\n");
    Settle();
    EXPECT_EQ(line.geometry().bottom() + 1, window.centralWidget()->height());
    EXPECT_EQ(button.geometry().bottom() + 1, line.y());
    const int narrow = line.height();
    EXPECT_GT(narrow, 2 * line.fontMetrics().height());
    window.resize(900, 400);
    Settle();
    EXPECT_LT(line.height(), narrow);
    EXPECT_EQ(form1.ScaleHeight, (400 - Find<QToolBar>("toolBar").geometry().bottom() - 1) * 15);
}

TEST_F(Form1NotesTest, AnEmptyWindowSaysWhatToDo) {
    Show();
    EXPECT_TRUE(NoteIsShown());
    RunOnFile("mnuOpen", Write("two.txt", "A1\r\nA2\r\n"));
    EXPECT_FALSE(NoteIsShown());
    SwitchEditMode();
    EXPECT_FALSE(NoteIsShown());
    Run("mnuClear");
    EXPECT_FALSE(NoteIsShown());
    SwitchEditMode();
    EXPECT_TRUE(NoteIsShown());
    Extract(true);
    EXPECT_FALSE(NoteIsShown());
    Extract(false);
    window.resize(230, 100);
    Settle();
    EXPECT_FALSE(NoteIsShown());
}

TEST_F(Form1NotesTest, TabGoesToItsLinksBetweenHeadingsAndLists) {
    Show();
    window.activateWindow();
    Find<QWidget>("List1Heading").setFocus();
    for (const char* const next :
         {"List2Heading", "emptyOpen", "emptyExtract", "emptyBook", "List1"}) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget(), &Find<QWidget>(next)) << next;
    }
}

TEST_F(Form1NotesTest, ItsLinksRunTheCommands) {
    Show();
    window.activateWindow();
    const std::string file = Write("two.txt", "A1\r\nA2\r\n");
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(""));
    Follow("emptyExtract");
    int asked = 0;
    QObject::connect(&window, &Form1Window::bookWindowAsked, &window, [&asked] { ++asked; });
    Follow("emptyBook");
    EXPECT_EQ(asked, 1);
    EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce([&](FileDialog& dialog) {
        EXPECT_EQ(dialog.Title, "Open file for conversion");
        return file;
    });
    Find<QWidget>("emptyOpen").setFocus();
    QTest::keyClick(&Find<QWidget>("emptyOpen"), Qt::Key_Return);
    EXPECT_EQ(form1.Caption, "Orvik - " + file);
    EXPECT_TRUE(Find<QWidget>("List1").hasFocus());
}

TEST_F(Form1NotesTest, TheTitleMarksOtherEntries) {
    Show();
    EXPECT_FALSE(window.isWindowModified());
    RunOnFile("mnuOpen",
              Write("two.ldif", "dn: cn=Al\r\nxmozillanickname: Al\r\nmail: A1\r\n\r\n"));
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(window.windowTitle().endsWith(QStringLiteral("two.ldif[*]")));
    EXPECT_TRUE(form1.Caption.ends_with("two.ldif"));
    for (const char* const form_alone : {"mnuConvert", "mnuUn", "mnuEntEd", "mnuEntEd"}) {
        Run(form_alone);
        EXPECT_FALSE(window.isWindowModified()) << form_alone;
    }
    Run("mnuRemDup");
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_TRUE(form1.Caption.ends_with("two.ldif"));
    Run("undo");
    EXPECT_FALSE(window.isWindowModified());
    Paste("mnuClearPaste", "\"Bo\" <A2>\r\n");
    EXPECT_TRUE(window.isWindowModified());
    RunOnFile("mnuSave", folder.filePath(QStringLiteral("saved.txt")).toStdString());
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(Form1NotesTest, TypingMarksUntilItIsUndone) {
    Show();
    SetAscii("\"Al\" <A1>\r\n");
    RunOnFile("mnuSave", folder.filePath(QStringLiteral("saved.txt")).toStdString());
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    QTest::keyClick(&text, Qt::Key_X);
    EXPECT_TRUE(window.isWindowModified());
    text.undo();
    EXPECT_FALSE(window.isWindowModified());
}

// Reading the book at every repaint would make a long command slow.
TEST_F(Form1NotesTest, NothingIsReadInTheMiddleOfACommand) {
    Show();
    List(kThree);
    EXPECT_TRUE(window.isWindowModified());
    desktop.run([this] {
        SetNative("-nick-");
        module1.RefreshLists();
        desktop.repaint();
        EXPECT_TRUE(window.isWindowModified());
        SetNative("");
        form1.ClearLists();
    });
    EXPECT_FALSE(window.isWindowModified());
}

}  // namespace
}  // namespace orvik
