// Texts that are far too long for a text box: pasted, dropped and typed with an input method.

#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "app/working_text.h"
#include "desktop/text/text_box_view.h"

namespace orvik {
namespace {

class OpenTextBoxView : public TextBoxView {
 public:
    using TextBoxView::insertFromMimeData;
    using TextBoxView::TextBoxView;
};

class TextBoxLimitTest : public testing::Test {
 protected:
    TextBoxLimitTest() {
        view.show();
        Sync();
        QTest::keyClicks(&view, QStringLiteral("abc"));
        MoveTo(2);
        // As the main window does.
        box.Change = [this] {
            if (box.Text().size() > kTextLimit) {
                ++refused;
                longest = box.Text().size();
                Sync();
                box.SetText("abc");
            }
        };
        QObject::connect(
            view.document(), &QTextDocument::contentsChange, &view, [this] { ++changes; });
    }

    void Sync() { view.sync(false, true); }
    void MoveTo(int position) {
        QTextCursor cursor = view.textCursor();
        cursor.setPosition(position);
        view.setTextCursor(cursor);
    }
    void Drop(const QString& text) {
        QMimeData data;
        data.setText(text);
        const QPoint place = view.cursorRect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &enter);
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &drop);
    }
    void Commit(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&view, &event);
    }
    void ExpectUntouched(int times) {
        EXPECT_EQ(refused, times);
        EXPECT_EQ(changes, 0);
        EXPECT_EQ(box.Text(), "abc");
        EXPECT_EQ(view.toPlainText(), QStringLiteral("abc"));
        EXPECT_EQ(view.textCursor().position(), 2);
        EXPECT_FALSE(view.document()->isRedoAvailable());
    }

    TextBox box;
    int refused = 0;
    std::size_t longest = 0;
    int changes = 0;
    OpenTextBoxView view{box,
                         [this](const std::function<void()>& event) {
                             event();
                             Sync();
                             return true;
                         },
                         {},
                         nullptr};
};

TEST_F(TextBoxLimitTest, TheFormRefusesThemAndTheDocumentNeverHasThem) {
    int times = 0;
    for (const int letters : {static_cast<int>(kTextLimit) - 2, 70000, 8 << 20}) {
        const QString text(letters, u'x');
        QMimeData pasted;
        pasted.setText(text);
        view.insertFromMimeData(&pasted);
        ExpectUntouched(++times);
        EXPECT_EQ(longest, static_cast<std::size_t>(letters) + 3);
        Drop(text);
        ExpectUntouched(++times);
        Commit(text);
        ExpectUntouched(++times);
    }
    // Many lines take no longer than one.
    Drop(QStringLiteral("a@x.org\r\n").repeated(1000000));
    ExpectUntouched(++times);
    // The text that is there can be edited and undone as before.
    QTest::keyClick(&view, Qt::Key_Y);
    EXPECT_EQ(box.Text(), "abyc");
    view.undo();
    view.undo();
    EXPECT_EQ(box.Text(), "");
}

TEST_F(TextBoxLimitTest, WhatFitsIsTaken) {
    Commit(QString(static_cast<int>(kTextLimit) - 3, u'x'));
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(box.Text().size(), kTextLimit);
    // What is selected makes room.
    view.selectAll();
    Drop(QStringLiteral("y"));
    view.selectAll();
    QMimeData pasted;
    pasted.setText(QString(static_cast<int>(kTextLimit), u'z'));
    view.insertFromMimeData(&pasted);
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(box.Text(), std::string(kTextLimit, 'z'));
}

TEST_F(TextBoxLimitTest, TypingAtTheLimitIsRefusedByTheForm) {
    Commit(QString(static_cast<int>(kTextLimit) - 3, u'x'));
    QTest::keyClick(&view, Qt::Key_Y);
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(longest, kTextLimit + 1);
}

TEST_F(TextBoxLimitTest, WhatIsNotYetTypedIsNotLaidOut) {
    QApplication::sendEvent(&view,
                            std::make_unique<QInputMethodEvent>(
                                QString(1 << 20, u'x'), QList<QInputMethodEvent::Attribute>())
                                .get());
    ExpectUntouched(0);
    EXPECT_EQ(view.document()->firstBlock().layout()->preeditAreaText(), QString());
}

TEST_F(TextBoxLimitTest, ALineTellsItself) {
    view.setSingleLine(10);
    Drop(QString(8 << 20, u'x'));
    ExpectUntouched(0);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("No more than 32000 letters fit in here."));
    QToolTip::hideText();
}

TEST_F(TextBoxLimitTest, AFormThatIsBusyTakesNothing) {
    OpenTextBoxView busy(
        box, [](const std::function<void()>& /*event*/) { return false; }, {}, nullptr);
    busy.sync(false, true);
    QMimeData pasted;
    pasted.setText(QString(1 << 20, u'x'));
    busy.insertFromMimeData(&pasted);
    busy.sync(false, true);
    EXPECT_EQ(busy.toPlainText(), QStringLiteral("abc"));
    EXPECT_EQ(box.Text(), "abc");
    EXPECT_EQ(refused, 0);
}

}  // namespace
}  // namespace orvik
