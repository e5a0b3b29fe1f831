// Edit mode in the main window.

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPushButton>
#include <QTextDocument>
#include <algorithm>

#include "desktop/form1_window_fixture.h"
#include "desktop/text/text_box_view.h"
#include "desktop/views/control_views.h"

namespace orvik {
namespace {

using test::Form1WindowTest;
using test::kThree;
using testing::_;
using testing::Return;

TEST_F(Form1WindowTest, EditModeShowsTheTextAndItsCommands) {
    Show();
    List(kThree);
    auto& text = Find<TextBoxView>("Text1");
    EXPECT_FALSE(text.isVisible());
    EXPECT_TRUE(text.document()->isEmpty());
    EXPECT_FALSE(Find<QAction>("mnuPaste").isEnabled());
    SwitchEditMode();
    EXPECT_TRUE(text.isVisible());
    EXPECT_FALSE(text.isReadOnly());
    EXPECT_EQ(text.toPlainText(), QStringLiteral("\"Al\" <A1>\n\"Bo\" <A2>\n\"Cy\" <A3>\n"));
    EXPECT_FALSE(Find<QListView>("List1").isVisible());
    EXPECT_FALSE(Find<QPushButton>("cmdEmail").isVisible());
    EXPECT_TRUE(Find<QAction>("mnuEntEd").isChecked());
    for (const char* const name : {"mnuSelCopy", "mnuPaste", "mnuDel", "mnuClear"}) {
        EXPECT_TRUE(Find<QAction>(name).isEnabled()) << name;
    }
    EXPECT_FALSE(Find<QAction>("mnuOrvik").isEnabled());
    QTest::keyClick(&text, Qt::Key_X);
    EXPECT_EQ(PanelText(2), QStringLiteral("34 characters"));
    SwitchEditMode();
    EXPECT_FALSE(text.isVisible());
    EXPECT_TRUE(text.document()->isEmpty());
    EXPECT_EQ(PanelText(2), QStringLiteral("3 items"));
    EXPECT_TRUE(Find<QAction>("mnuOrvik").isEnabled());
}

TEST_F(Form1WindowTest, ARefusedSwitchLeavesTheItemUnchecked) {
    SetAscii(std::string(32001, 'a'));
    EXPECT_CALL(platform, ShowBox(_)).WillOnce(Return(Answer::OK));
    SwitchEditMode();
    EXPECT_FALSE(Find<QAction>("mnuEntEd").isChecked());
}

TEST_F(Form1WindowTest, TypingBeyondTheLimitIsUndone) {
    Show();
    SetAscii(std::string(31999, 'a'));
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    QTest::keyClick(&text, Qt::Key_X);
    EXPECT_CALL(platform, ShowBox(_)).WillOnce([&](const MessageBox&) {
        desktop.syncAll();
        EXPECT_EQ(text.toPlainText().size(), 32001);
        return Answer::OK;
    });
    QTest::keyClick(&text, Qt::Key_Y);
    EXPECT_EQ(module1.WorkText.size(), 32000U);
    EXPECT_EQ(text.toPlainText().size(), 32000);
    EXPECT_EQ(text.textCursor().position(), 1);
    text.undo();
    EXPECT_EQ(module1.WorkText.size(), 31999U);
}

TEST_F(Form1WindowTest, PastingBeyondTheLimitIsUndone) {
    Show();
    SetAscii(std::string(31999, 'a'));
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    QTest::keyClick(&text, Qt::Key_X);
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("too much"));
    EXPECT_CALL(platform, ShowBox(_)).WillOnce([&](const MessageBox&) {
        desktop.syncAll();
        EXPECT_EQ(text.toPlainText().size(), 32008);
        return Answer::OK;
    });
    Find<QAction>("mnuPaste").trigger();
    EXPECT_EQ(text.textCursor().position(), 1);
    text.undo();
    EXPECT_EQ(module1.WorkText.size(), 31999U);
    EXPECT_FALSE(text.document()->isUndoAvailable());
}

TEST_F(Form1WindowTest, APasteOfManyMegabytesNeverGetsIntoTheBox) {
    Show();
    SetAscii("abc");
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    QTest::keyClick(&text, Qt::Key_X);
    int changes = 0;
    QObject::connect(
        text.document(), &QTextDocument::contentsChange, &text, [&changes] { ++changes; });
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return(std::string(8U << 20U, 'b')));
    EXPECT_CALL(platform, ShowBox(_)).WillOnce([&](const MessageBox& box) {
        EXPECT_EQ(box.About, Matter::TextTooLong);
        desktop.syncAll();
        return Answer::OK;
    });
    Find<QAction>("mnuPaste").trigger();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(module1.WorkText, "xabc");
    EXPECT_EQ(text.toPlainText(), QStringLiteral("xabc"));
    EXPECT_EQ(text.textCursor().position(), 1);
    QTest::keyClick(&text, Qt::Key_Y);
    EXPECT_EQ(module1.WorkText, "xyabc");
    text.undo();
    EXPECT_EQ(module1.WorkText, "abc");
}

TEST_F(Form1WindowTest, PasteAndDeleteCanBeUndone) {
    Show();
    SetAscii("abc");
    SwitchEditMode();
    auto& text = Find<TextBoxView>("Text1");
    text.selectAll();
    EXPECT_CALL(platform, ClipboardText()).WillOnce(Return("1\r\n2"));
    Find<QAction>("mnuPaste").trigger();
    EXPECT_EQ(module1.WorkText, "1\r\n2");
    text.selectAll();
    Find<QAction>("mnuDel").trigger();
    EXPECT_EQ(module1.WorkText, "");
    text.undo();
    EXPECT_EQ(module1.WorkText, "1\r\n2");
    text.undo();
    EXPECT_EQ(module1.WorkText, "abc");
}

TEST_F(Form1WindowTest, PastingAForeignLetterMakesTheTextUtf8) {
    Show();
    SetAscii("\xFC");
    SwitchEditMode();
    QGuiApplication::clipboard()->setText(QStringLiteral("\u0416"));
    EXPECT_CALL(platform, ClipboardText()).WillOnce([this] {
        EXPECT_EQ(desktop.selectionEncoding(), Encoding::Utf8);
        return "\xD0\x96";
    });
    Find<QAction>("mnuPaste").trigger();
    QGuiApplication::clipboard()->clear();
    EXPECT_EQ(module1.WorkText, "\xD0\x96\xC3\xBC");
    EXPECT_EQ(desktop.selectionEncoding(), std::nullopt);
}

TEST_F(Form1WindowTest, SelectAllIsSpeltOneWay) {
    const auto expect_in = [](const QList<QAction*>& rows) {
        EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), [](const QAction* row) {
            return row->text().remove(u'&') == QStringLiteral("Select All");
        }));
    };
    expect_in(Find<QListView>("List1").actions());
    expect_in(Find<QListView>("List2").actions());
    auto& text = Find<QPlainTextEdit>("Text1");
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(text.viewport(), &event);
    auto& menu = *text.findChild<QMenu*>();
    expect_in(menu.actions());
    menu.close();
    EXPECT_EQ(SpokenCaption(module1.frm_select.Command2.Caption), QStringLiteral("Select All"));
}

}  // namespace
}  // namespace orvik
