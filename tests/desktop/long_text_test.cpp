#include "desktop/session/long_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include "desktop/text/short_text.h"

namespace orvik {
namespace {

class LongTextTest : public testing::Test {
 protected:
    void Show(const QString& text) {
        box.setText(text);
        box.setStandardButtons(QMessageBox::Ok);
        LetTextBeRead(box);
        box.open();
    }
    [[nodiscard]] QPlainTextEdit* scrolled() const {
        return box.findChild<QPlainTextEdit*>(QStringLiteral("longText"));
    }
    QMessageBox box;
};

TEST_F(LongTextTest, AShortOneCanBeSelected) {
    Show(QStringLiteral("a@x.org Al"));
    EXPECT_EQ(scrolled(), nullptr);
    EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    EXPECT_TRUE(box.button(QMessageBox::Ok)->hasFocus() || !box.isActiveWindow());
}

TEST_F(LongTextTest, AGeneratedListScrollsWithinTheScreen) {
    const QString list = QStringLiteral("mary.miller@example.org Mary Miller\n").repeated(5000);
    Show(list);
    ASSERT_NE(scrolled(), nullptr);
    const QRect screen = box.screen()->availableGeometry();
    EXPECT_LE(box.frameGeometry().height(), screen.height());
    EXPECT_LE(box.frameGeometry().width(), screen.width());
    EXPECT_TRUE(box.rect().contains(scrolled()->geometry()));
    EXPECT_TRUE(box.rect().contains(box.button(QMessageBox::Ok)->parentWidget()->geometry()));
    EXPECT_GT(scrolled()->verticalScrollBar()->maximum(), 4900);
    // Every line is whole.
    EXPECT_EQ(scrolled()->horizontalScrollBar()->maximum(), 0);
    QTest::keySequence(scrolled(), QKeySequence::SelectAll);
    QTest::keySequence(scrolled(), QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), list);
    QTest::keyClicks(scrolled(), QStringLiteral("x"));
    EXPECT_EQ(scrolled()->toPlainText(), list);
    EXPECT_FALSE(scrolled()->accessibleName().isEmpty());
}

TEST_F(LongTextTest, OneLongLineStaysOnTheScreenToo) {
    Show(QString(100000, u'w'));
    ASSERT_NE(scrolled(), nullptr);
    EXPECT_LE(box.frameGeometry().width(), box.screen()->availableGeometry().width());
}

TEST_F(LongTextTest, OfALineOfManyMegabytesTheBeginningIsShown) {
    const QString line(8 << 20, u'w');
    Show(line + u'\n' + QStringLiteral("end"));
    ASSERT_NE(scrolled(), nullptr);
    EXPECT_EQ(scrolled()->toPlainText(), QString(kMostTyped, u'w') + QStringLiteral("\u2026\nend"));
    EXPECT_EQ(box.text().size(), kMostShown + 1);
}

}  // namespace
}  // namespace orvik
