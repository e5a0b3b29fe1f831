// How a page of the help looks: its pictures, its links, what the search marks in it, and its keys.

#include <QBuffer>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBlock>
#include <algorithm>
#include <functional>
#include <vector>

#include "desktop/help/help_picture.h"
#include "desktop/help_viewer_fixture.h"
#include "desktop/text/colours.h"

namespace orvik {
namespace {

using test::HelpFile;
using test::HelpViewerTest;

class HelpPageTest : public HelpViewerTest {
 protected:
    // Every piece of the page in one format.
    static void ForEachPart(const QMainWindow& window,
                            const std::function<void(const QTextFragment&)>& look) {
        const QTextDocument& document = *Page(window).document();
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                look(part.fragment());
            }
        }
    }
    static std::vector<QImage> Pictures(const QMainWindow& window) {
        std::vector<QImage> all;
        ForEachPart(window, [&](const QTextFragment& part) {
            const QTextImageFormat image = part.charFormat().toImageFormat();
            if (image.isValid()) {
                all.push_back(Page(window)
                                  .document()
                                  ->resource(QTextDocument::ImageResource, QUrl(image.name()))
                                  .value<QImage>());
            }
        });
        return all;
    }
    static std::vector<QColor> Links(const QMainWindow& window) {
        std::vector<QColor> all;
        ForEachPart(window, [&](const QTextFragment& part) {
            if (part.charFormat().isAnchor() && !part.charFormat().anchorHref().isEmpty()) {
                all.push_back(part.charFormat().foreground().color());
            }
        });
        return all;
    }
    static QPalette Palette(const QColor& base, const QColor& text) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, text);
        return palette;
    }
    // The words that are marked, in the order of the page.
    static QStringList Marked(const QMainWindow& window) {
        QStringList marked;
        for (const QTextEdit::ExtraSelection& mark : Page(window).extraSelections()) {
            marked << mark.cursor.selectedText().toLower();
        }
        return marked;
    }
    void ShowSearch() {
        Topic("secWin", "index.html");
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window("secWin")));
        Find<QTabWidget>("panes").setCurrentIndex(2);
    }

    const QPalette light = Palette(Qt::white, Qt::black);
    const QPalette dark = Palette(QColor(0x3d, 0x3d, 0x3d), Qt::white);
};

int Middle(const QImage& picture) {
    return picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .pixelColor(0, 0)
        .lightness();
}

TEST_F(HelpPageTest, PicturesAreNeverWiderThanThePage) {
    Topic("Stripped", "screenshot.html");
    QMainWindow& window = Window("Stripped");
    const double margins = 2 * Page(window).document()->documentMargin();
    int widest = 0;
    for (const int width : {1200, 500, 350, 700}) {
        window.resize(width, 400);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.width() == width; }));
        const std::vector<QImage> pictures = Pictures(window);
        ASSERT_GT(pictures.size(), 10U);
        for (const QImage& picture : pictures) {
            ASSERT_FALSE(picture.isNull());
            EXPECT_LE(picture.width() / picture.devicePixelRatio(),
                      Page(window).viewport()->width() - margins);
            widest = std::max(widest, picture.width());
        }
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return Page(window).horizontalScrollBar()->maximum() == 0;
        })) << width;
    }
    EXPECT_GT(widest, 800) << "where there is room they are as large as the windows";
    // Another page, and back: nothing older is shown.
    window.resize(350, 400);
    Topic("Stripped", "index.html");
    window.resize(1200, 400);
    Topic("Stripped", "screenshot.html");
    EXPECT_GT(Pictures(window).front().width(), 450);
}

TEST_F(HelpPageTest, PicturesAreThoseOfThePalette) {
    Topic("Stripped", "screenshot.html");
    QMainWindow& window = Window("Stripped");
    for (const bool is_dark : {true, false, true}) {
        Page(window).setPalette(is_dark ? dark : light);
        for (const QImage& picture : Pictures(window)) {
            EXPECT_EQ(Middle(picture) < 128, is_dark);
        }
    }
}

TEST(FramedPicture, HasALineAroundIt) {
    QImage white(100, 50, QImage::Format_RGB32);
    white.fill(Qt::white);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QBuffer::WriteOnly));
    ASSERT_TRUE(white.save(&buffer, "PNG"));
    const struct {
        const char* Name;
        int Widest;
        double Dots;
        QSize Expected;
    } rows[] = {
        {"a.png", 500, 1, {102, 52}},
        {"a.png", 52, 1, {52, 27}},
        {"a@2x.png", 500, 2, {104, 54}},
        {"a.png", 500, 2, {204, 104}},
        {"a.png", 1, 1, {3, 3}},
        {"a.png", -5, 1, {3, 3}},
    };
    for (const auto& row : rows) {
        const QImage framed =
            FramedPicture(bytes, QString::fromLatin1(row.Name), row.Widest, row.Dots, Qt::red);
        EXPECT_EQ(framed.width(), row.Expected.width()) << row.Name << row.Widest;
        EXPECT_NEAR(framed.height(), row.Expected.height(), 1) << row.Name << row.Widest;
        EXPECT_EQ(framed.devicePixelRatio(), row.Dots);
        const QPoint last(framed.width() - 1, framed.height() - 1);
        EXPECT_EQ(framed.pixelColor(0, 0), QColor(Qt::red));
        EXPECT_EQ(framed.pixelColor(last), QColor(Qt::red));
        EXPECT_NE(framed.pixelColor(last / 2), QColor(Qt::red));
    }
    EXPECT_TRUE(FramedPicture("no picture", QStringLiteral("a.png"), 9, 1, Qt::red).isNull());
}

TEST(PictureNames, BeginWithTheBest) {
    const auto names = [](bool dark, double dots) {
        return PictureNames(QStringLiteral("a.png"), dark, dots).join(u' ').toStdString();
    };
    EXPECT_EQ(names(false, 1), "a.png");
    EXPECT_EQ(names(true, 1), "a-dark.png a.png");
    EXPECT_EQ(names(true, 1.5), "a-dark@2x.png a-dark.png a@2x.png a.png");
}

TEST_F(HelpPageTest, LinksCanBeReadInALightAndADarkPalette) {
    Topic("Stripped", "screenshot.html");
    QMainWindow& window = Window("Stripped");
    for (const QPalette& palette : {light, dark}) {
        Page(window).setPalette(palette);
        const std::vector<QColor> links = Links(window);
        ASSERT_GT(links.size(), 5U);
        for (const QColor& link : links) {
            EXPECT_GE(Contrast(link, palette.color(QPalette::Base)), 4.5)
                << link.name().toStdString();
        }
    }
}

TEST_F(HelpPageTest, TheSearchMarksItsWordsInThePage) {
    ShowSearch();
    QMainWindow& window = Window("secWin");
    auto& words = Find<QLineEdit>("searchWords");
    QTest::keyClicks(&words, QStringLiteral("pegasus BACKSLASH"));
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(Page(window).documentTitle(), QStringLiteral("Pegasus Mail"));
    EXPECT_TRUE(Marked(window).contains(QStringLiteral("pegasus")));
    EXPECT_TRUE(Marked(window).contains(QStringLiteral("backslash")));
    for (const QTextEdit::ExtraSelection& mark : Page(window).extraSelections()) {
        EXPECT_GE(Contrast(mark.format.foreground().color(), mark.format.background().color()),
                  4.5);
    }
    // Also after the palette changed, and only while the search is in front.
    const qsizetype count = Marked(window).size();
    Page(window).setPalette(dark);
    EXPECT_EQ(Marked(window).size(), count);
    Find<QTabWidget>("panes").setCurrentIndex(0);
    EXPECT_TRUE(Marked(window).isEmpty());
    Find<QTabWidget>("panes").setCurrentIndex(2);
    EXPECT_EQ(Marked(window).size(), count);
    words.clear();
    EXPECT_TRUE(Marked(window).isEmpty());
}

TEST_F(HelpPageTest, TheFirstMarkIsInSight) {
    ShowSearch();
    QMainWindow& window = Window("secWin");
    window.resize(900, 300);
    auto& words = Find<QLineEdit>("searchWords");
    words.setText(QStringLiteral("Alt+Home"));
    QTest::keyClick(&words, Qt::Key_Return);
    ASSERT_FALSE(Marked(window).isEmpty());
    const QTextBrowser& page = Page(window);
    const auto& first = page.extraSelections().front();
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.verticalScrollBar()->value() > 0; }));
    EXPECT_TRUE(page.viewport()->rect().intersects(page.cursorRect(first.cursor)));
}

TEST_F(HelpPageTest, AltAndALetterLeadToTheField) {
    Topic("secWin", "index.html");
    QMainWindow& window = Window("secWin");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const struct {
        Qt::Key Key;
        const char* Field;
    } rows[] = {{Qt::Key_S, "searchWords"},
                {Qt::Key_S, "searchWords"},
                {Qt::Key_I, "indexWord"},
                {Qt::Key_I, "indexWord"},
                {Qt::Key_C, "contents"}};
    for (const auto& row : rows) {
        Page(window).setFocus();
        QTest::keyClick(&Page(window), row.Key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return QApplication::focusWidget() == &Find<QWidget>(row.Field);
        })) << row.Field;
    }
}

TEST_F(HelpPageTest, EscapeClosesTheWindowFromEveryPart) {
    const struct {
        int Pane;
        const char* Part;
    } rows[] = {{0, "contents"},
                {0, "page"},
                {1, "indexWord"},
                {1, "index"},
                {2, "searchWords"},
                {2, "hits"}};
    for (const auto& row : rows) {
        Topic("secWin", "index.html");
        QMainWindow& window = Window("secWin");
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        Find<QTabWidget>("panes").setCurrentIndex(row.Pane);
        auto& part = Find<QWidget>(row.Part);
        part.setFocus();
        QTest::keyClick(&part, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible()) << row.Part;
    }
}

}  // namespace
}  // namespace orvik
