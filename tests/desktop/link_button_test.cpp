#include "desktop/views/link_button.h"

#include <QImage>
#include <QPalette>
#include <QWidget>

#include <gtest/gtest.h>

namespace orvik {
namespace {

QPalette PaletteOf(const char* link, const char* letters) {
    QPalette palette;
    palette.setColor(QPalette::Link, QColor(QLatin1String(link)));
    palette.setColor(QPalette::WindowText, QColor(QLatin1String(letters)));
    return palette;
}

TEST(LinkButtonTest, ContrastIsThatOfThePagesOfTheWeb) {
    EXPECT_NEAR(LinkButton::contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(LinkButton::contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(LinkButton::contrast(Qt::red, Qt::red), 1, 0.01);
    EXPECT_NEAR(LinkButton::contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(LinkButtonTest, ALinkThatIsEasyToReadKeepsItsColour) {
    EXPECT_EQ(LinkButton::linkColor(PaletteOf("#0000ff", "#000000"), Qt::white), QColor(Qt::blue));
}

TEST(LinkButtonTest, ALinkIsReadableOnAnyBackground) {
    const QColor dark(0x3d, 0x3d, 0x3d);
    const QPalette palette = PaletteOf("#0986d3", "#ffffff");
    EXPECT_LT(LinkButton::contrast(palette.color(QPalette::Link), dark), 4.5);
    const QColor shown = LinkButton::linkColor(palette, dark);
    EXPECT_GE(LinkButton::contrast(shown, dark), 4.5);
    EXPECT_GT(shown.blue(), shown.red());
    // Where even letters cannot be read well, it is as they are.
    EXPECT_EQ(LinkButton::linkColor(PaletteOf("#777777", "#888888"), QColor(0x80, 0x80, 0x80)),
              QColor(0x88, 0x88, 0x88));
}

TEST(LinkButtonTest, ALinkThatCannotBeUsedLooksLikeIt) {
    QWidget parent;
    LinkButton link(QStringLiteral("link"), QStringLiteral("MMM"), &parent);
    QPalette palette = PaletteOf("#0000ff", "#000000");
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::Link, Qt::blue);
    parent.setPalette(palette);
    const auto is_blue = [&] {
        const QImage image = link.grab().toImage();
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.blue() > colour.red() + 40) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(is_blue());
    link.setEnabled(false);
    EXPECT_FALSE(is_blue());
}

}  // namespace
}  // namespace orvik
