#include "desktop/text/text_box_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "desktop/text/colours.h"
#include "desktop/text/system_clipboard.h"

namespace orvik {
namespace {

using namespace std::string_literals;

// Lets tests call what only Qt calls.
class OpenTextBoxView : public TextBoxView {
 public:
    using TextBoxView::canInsertFromMimeData;
    using TextBoxView::createMimeDataFromSelection;
    using TextBoxView::insertFromMimeData;
    using TextBoxView::TextBoxView;
};

class TextBoxViewTest : public testing::Test {
 protected:
    TextBoxViewTest() {
        QObject::connect(&copy, &QAction::triggered, [this] { ++copied; });
        QObject::connect(&paste, &QAction::triggered, [this] { ++pasted; });
        QObject::connect(&remove, &QAction::triggered, [this] { ++removed; });
        Sync();
    }

    bool Run(const std::function<void()>& event) {
        if (refusing) {
            Sync();
            return false;
        }
        event();
        Sync();
        return true;
    }
    void Sync() { view.sync(false, true); }
    void Show(const std::string& text) {
        box.SetText(text);
        Sync();
    }
    // A command replaced the selection.
    void Replace(const std::string& text) {
        view.setKeepHistory(true);
        box.ReplaceSelection(text);
        Sync();
        view.setKeepHistory(false);
    }
    void MoveTo(int position) {
        QTextCursor cursor = view.textCursor();
        cursor.setPosition(position);
        view.setTextCursor(cursor);
    }
    [[nodiscard]] QString Shown() const { return view.document()->toRawText(); }

    TextBox box;
    bool refusing = false;
    int copied = 0;
    int pasted = 0;
    int removed = 0;
    QAction copy;
    QAction paste;
    QAction remove;
    OpenTextBoxView view{box,
                         [this](const std::function<void()>& event) { return Run(event); },
                         TextBoxView::Commands{&copy, &paste, &remove},
                         nullptr};
};

TEST_F(TextBoxViewTest, EachTextComesBackAroundATypedLetter) {
    for (const std::string& text : {""s,
                                    "a\r\nb\rc\nd"s,
                                    "\0\xA0\xFF\x81"s,
                                    "\xC2\xA0\xC3\xBC"s,
                                    "\xE2\x80\xA8"s,
                                    "\r"s,
                                    "\n"s,
                                    "\r\n"s,
                                    "\n\r"s}) {
        Show(text);
        QTest::keyClick(&view, Qt::Key_X);
        EXPECT_EQ(box.Text(), "x" + text) << testing::PrintToString(text);
        EXPECT_EQ(box.SelStart, 1U);
        QTest::keyClick(&view, Qt::Key_Backspace);
        EXPECT_EQ(box.Text(), text) << testing::PrintToString(text);
    }
}

TEST_F(TextBoxViewTest, WhatIsNoEditDoesNotReachTheForm) {
    Show("a\r\nb");
    const Revision before = box.TextRevision();
    view.selectAll();
    view.setFocus();
    view.setReadOnly(true);
    MoveTo(1);
    view.document()->setDefaultFont(QFont(QStringLiteral("monospace")));
    EXPECT_EQ(box.TextRevision(), before);
}

TEST_F(TextBoxViewTest, ASecondSyncTouchesNothing) {
    Show("a\r\nb");
    const int revision = view.document()->revision();
    Sync();
    Sync();
    EXPECT_EQ(view.document()->revision(), revision);
}

TEST_F(TextBoxViewTest, LettersGoBackInTheEncodingTheyWereShownWith) {
    Show("\xFC");
    QTest::sendKeyEvent(
        QTest::Click, &view, Qt::Key_unknown, QStringLiteral("\u20AC"), Qt::NoModifier);
    EXPECT_EQ(box.Text(), "\x80\xFC");
    Show("\xC3\xBC");
    QTest::sendKeyEvent(
        QTest::Click, &view, Qt::Key_unknown, QStringLiteral("\u20AC"), Qt::NoModifier);
    EXPECT_EQ(box.Text(), "\xE2\x82\xAC\xC3\xBC");
}

TEST_F(TextBoxViewTest, AForeignLetterMakesTheTextUtf8) {
    Show("\xFC");
    QTest::sendKeyEvent(
        QTest::Click, &view, Qt::Key_unknown, QStringLiteral("\u0416"), Qt::NoModifier);
    EXPECT_EQ(box.Text(), "\xD0\x96\xC3\xBC");
    EXPECT_EQ(view.encoding(), Encoding::Utf8);
}

TEST_F(TextBoxViewTest, ATextThatLostItsLastAccentKeepsItsEncoding) {
    Show("\xFC");
    QTest::keyClick(&view, Qt::Key_A);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(box.Text(), "a");
    QTest::sendKeyEvent(
        QTest::Click, &view, Qt::Key_unknown, QStringLiteral("\u00E9"), Qt::NoModifier);
    EXPECT_EQ(box.Text(), "a\xE9");
}

TEST_F(TextBoxViewTest, EnterWithAndWithoutShiftIsALineBreak) {
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Enter, Qt::KeypadModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.Text(), "\r\n\r\n\r\n");
}

TEST_F(TextBoxViewTest, ARefusedEditLeavesTextCursorAndHistory) {
    Show("ab");
    MoveTo(1);
    QTest::keyClicks(&view, QStringLiteral("xyz"));
    ASSERT_EQ(box.Text(), "axyzb");
    box.Change = [this] { box.SetText("axyzb"); };
    QTest::keyClick(&view, Qt::Key_W);
    box.Change = {};
    EXPECT_EQ(box.Text(), "axyzb");
    EXPECT_EQ(Shown(), QStringLiteral("axyzb"));
    EXPECT_EQ(view.textCursor().position(), 4);
    EXPECT_FALSE(view.document()->isRedoAvailable());
    view.undo();
    EXPECT_EQ(box.Text(), "ab");
    view.redo();
    EXPECT_EQ(box.Text(), "axyzb");
}

TEST_F(TextBoxViewTest, ARefusedReplacementBringsTheSelectionBack) {
    Show("abcd");
    box.Change = [this] { box.SetText("abcd"); };
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(1);
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    QTest::keyClick(&view, Qt::Key_W);
    EXPECT_EQ(Shown(), QStringLiteral("abcd"));
    EXPECT_EQ(view.textCursor().anchor(), 1);
    EXPECT_EQ(view.textCursor().position(), 3);
    // The form put its selection to the start; a command asks for what is shown.
    view.takeSelection();
    EXPECT_EQ(box.SelText(), "bc");
}

TEST_F(TextBoxViewTest, AnEditThatIsNotTakenIsUndone) {
    Show("ab");
    refusing = true;
    QTest::keyClick(&view, Qt::Key_W);
    EXPECT_EQ(Shown(), QStringLiteral("ab"));
    EXPECT_EQ(box.Text(), "ab");
}

TEST_F(TextBoxViewTest, ACommandOnTheSelectionCanBeUndone) {
    Show("abcd");
    QTest::keyClick(&view, Qt::Key_X);
    box.Select(2, 2);
    Sync();
    EXPECT_EQ(view.textCursor().selectedText(), QStringLiteral("bc"));
    Replace("1\r\n2");
    EXPECT_EQ(box.Text(), "xa1\r\n2d");
    EXPECT_EQ(view.textCursor().position(), 5);
    view.undo();
    EXPECT_EQ(box.Text(), "xabcd");
    view.undo();
    EXPECT_EQ(box.Text(), "abcd");
}

TEST_F(TextBoxViewTest, ANewTextHasNoHistory) {
    Show("ab");
    QTest::keyClick(&view, Qt::Key_X);
    Show("other");
    EXPECT_FALSE(view.document()->isUndoAvailable());
    EXPECT_EQ(view.textCursor().position(), 0);
}

TEST_F(TextBoxViewTest, TheSelectionCountsBytesInTheForm) {
    Show("\xC3\xBC\r\nb");
    view.selectAll();
    EXPECT_EQ(box.SelLength, 5U);
    MoveTo(2);
    EXPECT_EQ(box.SelStart, 4U);
    EXPECT_EQ(box.SelLength, 0U);
    box.Select(2, 2);
    Sync();
    EXPECT_EQ(view.textCursor().selectionStart(), 1);
    EXPECT_EQ(view.textCursor().selectionEnd(), 2);
}

TEST_F(TextBoxViewTest, ACoveredBoxIsEmptyAndFilledWhenItIsSeen) {
    Show("ab");
    QTest::keyClick(&view, Qt::Key_X);
    view.sync(true, false);
    EXPECT_TRUE(view.isHidden());
    EXPECT_TRUE(view.document()->isEmpty());
    box.SetText("cd");
    view.sync(true, false);
    EXPECT_TRUE(view.document()->isEmpty());
    Sync();
    EXPECT_EQ(Shown(), QStringLiteral("cd"));
    EXPECT_FALSE(view.document()->isUndoAvailable());
    EXPECT_FALSE(view.isReadOnly());
}

TEST_F(TextBoxViewTest, KeysRunTheCommands) {
    Show("ab");
    QTest::keySequence(&view, QKeySequence::Copy);
    QTest::keySequence(&view, QKeySequence::Cut);
    EXPECT_EQ(copied + removed, 0);
    view.selectAll();
    QTest::keySequence(&view, QKeySequence::Copy);
    EXPECT_EQ(copied, 1);
    QTest::keySequence(&view, QKeySequence::Cut);
    EXPECT_EQ(copied, 2);
    EXPECT_EQ(removed, 1);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(removed, 2);
    QTest::keySequence(&view, QKeySequence::Paste);
    EXPECT_EQ(pasted, 1);
    EXPECT_EQ(box.Text(), "ab");
}

TEST_F(TextBoxViewTest, WhatIsDraggedOutAndInKeepsEachLineEnd) {
    Show("a\r\nb\rc\nd");
    view.selectAll();
    const std::unique_ptr<QMimeData> dragged(view.createMimeDataFromSelection());
    EXPECT_EQ(dragged->text(), QStringLiteral("a\r\nb\rc\nd"));
    MoveTo(0);
    view.insertFromMimeData(dragged.get());
    EXPECT_EQ(box.Text(), "a\r\nb\rc\nda\r\nb\rc\nd");
}

TEST_F(TextBoxViewTest, AFileIsNotInsertedAsItsName) {
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(QStringLiteral("/book.ldif"))});
    EXPECT_FALSE(view.canInsertFromMimeData(&file));
    QMimeData text;
    text.setText(QStringLiteral("a"));
    EXPECT_TRUE(view.canInsertFromMimeData(&text));
}

TEST_F(TextBoxViewTest, ATextCanBecomeUtf8AsAWhole) {
    Show(
        "\xFC"
        "ab");
    box.Select(1, 1);
    Sync();
    EXPECT_TRUE(view.changeToUtf8());
    Sync();
    EXPECT_EQ(box.Text(),
              "\xC3\xBC"
              "ab");
    EXPECT_EQ(box.SelText(), "a");
    EXPECT_EQ(view.encoding(), Encoding::Utf8);
    EXPECT_EQ(Shown(), QStringLiteral("\u00FCab"));
}

TEST_F(TextBoxViewTest, ATextThatMayNotBecomeUtf8StaysAsItIs) {
    Show("\xFC");
    box.Change = [this] { box.SetText("\xFC"); };
    EXPECT_FALSE(view.changeToUtf8());
    Sync();
    EXPECT_EQ(view.encoding(), Encoding::Windows1252);
    EXPECT_EQ(Shown(), QStringLiteral("\u00FC"));
}

TEST_F(TextBoxViewTest, TheBoxWithTheFocusHasAFrameOfItsOwn) {
    QWidget window;
    QVBoxLayout column(&window);
    QLineEdit other;
    column.addWidget(&view);
    column.addWidget(&other);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto edge = [this] {
        return view.grab().toImage().pixelColor(view.width() / 2, view.height() - 1);
    };
    for (const bool single_line : {false, true}) {
        other.setFocus();
        const QColor without = edge();
        view.setFocus();
        EXPECT_EQ(edge(), FocusColour(view.palette()));
        EXPECT_NE(edge(), without);
        other.setFocus();
        EXPECT_EQ(edge(), without);
        if (!single_line) {
            view.setSingleLine(10);
        }
    }
    view.setParent(nullptr);
}

}  // namespace
}  // namespace orvik
