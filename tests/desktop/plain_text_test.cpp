#include "desktop/text/plain_text.h"

#include <QLabel>
#include <QTextDocument>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/form1_window_fixture.h"
#include "desktop/windows/late_windows.h"

namespace orvik {
namespace {

using PlainLabelsTest = test::Form1WindowTest;

TEST(ShownNameTest, LettersStayAndTheRestIsEscaped) {
    EXPECT_EQ(ShownName(std::string_view("J\xC3\xBCrg <b>")), QStringLiteral("J\u00FCrg <b>"));
    EXPECT_EQ(ShownName(std::string_view("a\xE2\x80\xAE\x1B")), QStringLiteral("a\\u202E\\x1B"));
    EXPECT_EQ(ShownName(std::string_view("J\xFCrg\x81")), QStringLiteral("J\u00FCrg\\u0081"))
        << "Windows-1252 has no letter there";
    EXPECT_EQ(ShownName(QStringLiteral("a\nb\u2028")), QStringLiteral("a\\x0Ab\\u2028"));
}

TEST(PlainTipTest, NothingIsTakenForHtml) {
    for (const char* const text : {"a & b", "a < b", "\"Al\" <al@example.org>", "plain"}) {
        if (!Qt::mightBeRichText(QString::fromLatin1(text))) {
            EXPECT_EQ(PlainTip(QString::fromLatin1(text)), QString::fromLatin1(text));
        }
    }
    EXPECT_EQ(PlainTip(QString()), QString());
    EXPECT_EQ(PlainTip(QStringLiteral("<b>Al</b>")),
              QStringLiteral("<p>&lt;b&gt;Al&lt;/b&gt;</p>"));
    EXPECT_EQ(PlainTip(QStringLiteral("&lt;b")), QStringLiteral("<p>&amp;lt;b</p>"));
}

TEST(PlainTipTest, ALongTextIsBrokenIntoLinesAndAVeryLongOneShortened) {
    const QString longest(kTipColumns, u'w');
    EXPECT_EQ(PlainTip(longest), longest);
    EXPECT_EQ(PlainTip(longest + u'x'), longest + QStringLiteral("\nx"));
    EXPECT_EQ(PlainTip(longest + u'\n' + longest), longest + u'\n' + longest);
    const QString words = QStringLiteral("word and ").repeated(20);
    EXPECT_EQ(PlainTip(words).remove(u'\n'), words);
    EXPECT_TRUE(PlainTip(words).contains(QStringLiteral(" \n")));
    // A letter of two halves stays whole.
    const QString halves = QStringLiteral("\U0001F600").repeated(kTipColumns);
    for (const QString& line : PlainTip(halves).split(u'\n')) {
        EXPECT_EQ(line.size() % 2, 0);
        EXPECT_LE(line.size(), 2 * kTipColumns);
    }
    const QString huge = PlainTip(QString(3'000'000, u'w'));
    EXPECT_EQ(huge.count(u'w'), kTipLetters);
    EXPECT_TRUE(huge.endsWith(QChar(0x2026)));
    EXPECT_TRUE(PlainTip(QStringLiteral("<b>") + huge).contains(QStringLiteral("&lt;b&gt;")));
}

// A label that finds out by itself would take a name for HTML.
TEST_F(PlainLabelsTest, NoLabelOfAnyWindowShowsHtml) {
    LateWindows small_windows(program, desktop, &window);
    small_windows.makeAll();
    std::vector<QWidget*> windows = {&window};
    for (const auto& small : small_windows.made()) {
        windows.push_back(small.get());
    }
    int labels = 0;
    for (const QWidget* const one : windows) {
        for (const QLabel* const label : one->findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
            ++labels;
        }
    }
    EXPECT_GT(labels, 10);
}

}  // namespace
}  // namespace orvik
