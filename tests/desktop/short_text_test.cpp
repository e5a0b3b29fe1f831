#include "desktop/text/short_text.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>
#include <string>

#include <gtest/gtest.h>

namespace orvik {
namespace {

constexpr auto kMost = static_cast<std::size_t>(kMostShown);

TEST(ShortTextTest, OnlyALongerTextIsCut) {
    EXPECT_EQ(Shortened(QStringLiteral("abc"), 3), QStringLiteral("abc"));
    EXPECT_EQ(Shortened(QStringLiteral("abcd"), 3), QStringLiteral("abc\u2026"));
    EXPECT_EQ(Shortened(QString()), QString());
    // Both halves of a pair go.
    EXPECT_EQ(Shortened(QStringLiteral("ab\U0001F600d"), 3), QStringLiteral("ab\u2026"));
}

TEST(ShortText, WithoutMiddle_KeepsBothEnds) {
    EXPECT_EQ(WithoutMiddle(QStringLiteral("abcdefgh"), 5), QStringLiteral("ab\u2026gh"));
    EXPECT_EQ(WithoutMiddle(QStringLiteral("abcde"), 5), QStringLiteral("abcde"));
    EXPECT_EQ(WithoutMiddle(QStringLiteral("a\U0001F600cdef\U0001F600h"), 5),
              QStringLiteral("a\u2026h"));
}

TEST(ShortTextTest, BytesAreCutBetweenLetters) {
    EXPECT_EQ(ToShownLetters("\xC3\xBC"), QStringLiteral("\u00FC"));
    EXPECT_EQ(ToShownLetters(std::string(kMost, 'a')), QString(kMostShown, u'a'));
    EXPECT_EQ(ToShownLetters(std::string(kMost - 1, 'a') + "\xC3\xBC" + "b"),
              QString(kMostShown - 1, u'a') + u'\u2026');
    EXPECT_EQ(ToShownLetters(std::string(kMost - 1, 'a') + "\xC3\xBC" + "b\xFF"),
              QString(kMostShown - 1, u'a') + QStringLiteral("\u00C3\u2026"));
}

class LimitedFieldTest : public testing::Test {
 protected:
    LimitedFieldTest() {
        LimitLength(field, 5);
        field.setText(QStringLiteral("abc"));
        QObject::connect(&field, &QLineEdit::textEdited, [this] { ++edits; });
        field.show();
    }
    QLineEdit field;
    int edits = 0;
};

TEST_F(LimitedFieldTest, WhatFitsIsTaken) {
    QTest::keyClicks(&field, QStringLiteral("de"));
    EXPECT_EQ(field.text(), QStringLiteral("abcde"));
    EXPECT_EQ(edits, 2);
    EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(LimitedFieldTest, WhatIsTooLongIsRefusedAsAWhole) {
    for (const int letters : {3, 4, 1 << 20}) {
        QGuiApplication::clipboard()->setText(QString(letters, u'x'));
        field.paste();
        EXPECT_EQ(field.text(), QStringLiteral("abc"));
        QInputMethodEvent typed;
        typed.setCommitString(QString(letters, u'x'));
        QApplication::sendEvent(&field, &typed);
        EXPECT_EQ(field.text(), QStringLiteral("abc"));
    }
    EXPECT_EQ(edits, 0);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("No more than 5 letters fit in here."));
    // What is selected makes room.
    QGuiApplication::clipboard()->setText(QStringLiteral("12345"));
    field.selectAll();
    field.paste();
    EXPECT_EQ(field.text(), QStringLiteral("12345"));
    QToolTip::hideText();
}

}  // namespace
}  // namespace orvik
