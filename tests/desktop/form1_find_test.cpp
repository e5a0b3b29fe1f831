// Finding in the main window.

#include <QLineEdit>
#include <QToolButton>

#include "desktop/form1_window_fixture.h"
#include "desktop/text/text_box_view.h"

namespace orvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FindTest : public test::Form1WindowTest {
 protected:
    void Open() {
        Show();
        List("al@x\r\nbo@x\r\ncy@y\r\n-nick-\r\nAl\r\nBo\r\nAlbert\r\n");
        Find<QListView>("List2").setFocus();
        Find<QAction>("find").trigger();
        Settle();
    }
    void Type(const char* text) { QTest::keyClicks(&text_, QString::fromLatin1(text)); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&text_, key, modifiers);
    }
    std::string Notice() { return Find<QLabel>("findNotice").text().toStdString(); }
    void ExpectFound(std::size_t row, const char* notice = "") {
        EXPECT_THAT(form1.List1.Selected(), ElementsAre(row));
        EXPECT_THAT(form1.List2.Selected(), ElementsAre(row));
        EXPECT_EQ(Find<QListView>("List1").currentIndex().row(), static_cast<int>(row));
        EXPECT_EQ(Find<QListView>("List2").currentIndex().row(), static_cast<int>(row));
        EXPECT_EQ(Notice(), notice);
    }

    QWidget& bar_ = Find<QWidget>("findBar");
    QLineEdit& text_ = Find<QLineEdit>("findText");
};

TEST_F(FindTest, TheBarOpensUnderTheListsAndGivesTheFocusBack) {
    Open();
    EXPECT_TRUE(text_.hasFocus());
    EXPECT_EQ(bar_.geometry().bottom() + 1, window.centralWidget()->height());
    EXPECT_EQ(Find<QWidget>("cmdEmail").geometry().bottom() + 1, bar_.y());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(bar_.isVisible());
    EXPECT_TRUE(Find<QListView>("List2").hasFocus());
    EXPECT_EQ(Find<QWidget>("cmdEmail").geometry().bottom() + 1, window.centralWidget()->height());
}

TEST_F(FindTest, TypingFindsAndEnterGoesOn) {
    Open();
    Type("A");
    ExpectFound(0);
    Type("lb");
    ExpectFound(2);
    text_.clear();
    Type("al");
    ExpectFound(2);
    Press(Qt::Key_Return);
    ExpectFound(0, "From the start");
    Press(Qt::Key_Return);
    ExpectFound(2);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    ExpectFound(0);
    EXPECT_TRUE(text_.hasFocus());
}

TEST_F(FindTest, WhatIsNotThereIsToldInTheBar) {
    Open();
    Type("bo");
    Type("?");
    ExpectFound(1, "Not found");
    EXPECT_EQ(text_.accessibleDescription(), QStringLiteral("Not found"));
    Press(Qt::Key_Backspace);
    ExpectFound(1);
}

TEST_F(FindTest, ItsKeysWorkWithoutTheBar) {
    Open();
    Type("@x");
    Press(Qt::Key_Escape);
    Find<QAction>("findNext").trigger();
    ExpectFound(1);
    EXPECT_TRUE(bar_.isVisible());
    EXPECT_FALSE(text_.hasFocus());
    Find<QToolButton>("findPreviousButton").click();
    ExpectFound(0);
    Find<QToolButton>("findPreviousButton").click();
    ExpectFound(1, "From the end");
    EXPECT_EQ(Find<QAction>("find").shortcut(), QKeySequence(QKeySequence::Find));
    EXPECT_EQ(Find<QAction>("findNext").shortcut(), QKeySequence(Qt::Key_F3));
    EXPECT_EQ(Find<QAction>("findPrevious").shortcut(), QKeySequence(Qt::SHIFT | Qt::Key_F3));
}

TEST_F(FindTest, SeveralSelectedRowsBecomeOne) {
    Open();
    ClickRow(Find<QListView>("List1"), 0);
    ClickRow(Find<QListView>("List1"), 1, Qt::ControlModifier);
    Type("bo");
    ExpectFound(1);
}

TEST_F(FindTest, NothingIsFoundInTheMiddleOfAnExtraction) {
    Open();
    Type("bo");
    QMetaObject::invokeMethod(
        &window, [this] { Find<QAction>("findPrevious").trigger(); }, Qt::QueuedConnection);
    desktop.run([this] { desktop.yield(); });
    ExpectFound(1);
}

TEST_F(FindTest, TabGoesThroughTheBarAsTheEyeDoes) {
    Open();
    for (const char* expected : {"findPreviousButton", "findNextButton", "findClose"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), expected);
    }
}

TEST_F(FindTest, EnterPressesTheButtonThatHasTheFocus) {
    Open();
    Type("al");
    ExpectFound(0);
    auto& previous = Find<QToolButton>("findPreviousButton");
    previous.setFocus();
    QTest::keyClick(&previous, Qt::Key_Return);
    ExpectFound(2, "From the end");
    auto& close = Find<QToolButton>("findClose");
    close.setFocus();
    QTest::keyClick(&close, Qt::Key_Return);
    EXPECT_FALSE(bar_.isVisible());
    ExpectFound(2, "From the end");
}

TEST_F(FindTest, InEditModeTheTextIsSearched) {
    Open();
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    Find<QAction>("find").trigger();
    const auto found = [&] { return text.textCursor().selectedText().toStdString(); };
    Type("al");
    EXPECT_EQ(found(), "Al");
    const int first = text.textCursor().position();
    Press(Qt::Key_Return);
    EXPECT_GT(text.textCursor().position(), first);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(text.textCursor().position(), first);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Notice(), "From the end");
    EXPECT_EQ(found(), "Al");
    Type("?");
    EXPECT_EQ(Notice(), "Not found");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(text.hasFocus());
}

TEST_F(FindTest, NothingIsFoundInAnEmptyBook) {
    Show();
    Find<QAction>("findNext").trigger();
    EXPECT_TRUE(text_.hasFocus());
    Type("a");
    EXPECT_EQ(Notice(), "Not found");
    EXPECT_THAT(form1.List1.Selected(), IsEmpty());
}

TEST_F(FindTest, TheBarKeepsItsSizeWhateverItSays) {
    Open();
    const QRect bar = bar_.geometry();
    const QRect text = text_.geometry();
    const QRect close = Find<QWidget>("findClose").geometry();
    const auto expect_same = [&](const char* notice) {
        Settle();
        EXPECT_EQ(Notice(), notice);
        EXPECT_EQ(bar_.geometry(), bar);
        EXPECT_EQ(text_.geometry(), text);
        EXPECT_EQ(Find<QWidget>("findClose").geometry(), close);
        // All of the notice is in sight.
        const auto& label = Find<QLabel>("findNotice");
        EXPECT_GE(label.width(), label.fontMetrics().horizontalAdvance(label.text()));
    };
    Type("Bo");
    expect_same("");
    Press(Qt::Key_Return);
    expect_same("From the start");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    expect_same("From the end");
    Type("x");
    expect_same("Not found");
}

TEST_F(FindTest, InANarrowBarTheLabelGivesWay) {
    Open();
    const auto& label = Find<QLabel>("findLabel");
    const auto& close = Find<QWidget>("findClose");
    for (const int width : {900, 260, 900}) {
        window.resize(width, 300);
        Settle();
        EXPECT_EQ(label.isVisible(), width == 900);
        EXPECT_LE(close.geometry().right(), bar_.width());
    }
}

}  // namespace
}  // namespace orvik
