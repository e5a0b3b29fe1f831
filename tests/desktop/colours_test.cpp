#include "desktop/text/colours.h"

#include <gtest/gtest.h>

namespace orvik {
namespace {

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(Contrast(Qt::red, Qt::red), 1, 0.001);
    EXPECT_NEAR(Contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
    EXPECT_NEAR(Contrast(QColor(0, 0, 255), Qt::white), 8.59, 0.01);
}

QPalette Made(const QColor& base, const QColor& text, const QColor& colour) {
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Link, colour);
    palette.setColor(QPalette::Highlight, colour);
    return palette;
}

TEST(Colours, CanBeToldApartInEveryPalette) {
    const QColor colours[] = {
        Qt::blue, Qt::cyan, Qt::yellow, Qt::white, Qt::black, QColor(0x09, 0x86, 0xd3)};
    const QColor papers[] = {
        Qt::white, Qt::black, QColor(0x3d, 0x3d, 0x3d), QColor(0xef, 0xeb, 0xe7), Qt::gray};
    for (const QColor& paper : papers) {
        const bool dark = Contrast(paper, Qt::white) > Contrast(paper, Qt::black);
        for (const QColor& colour : colours) {
            const QPalette palette = Made(paper, dark ? Qt::white : Qt::black, colour);
            EXPECT_EQ(IsDark(palette), dark) << paper.name().toStdString();
            EXPECT_GE(Contrast(LinkColour(palette), paper), 4.5)
                << colour.name().toStdString() << " on " << paper.name().toStdString();
            EXPECT_GE(Contrast(QuietColour(palette), paper), 4.5) << paper.name().toStdString();
            EXPECT_GE(Contrast(FocusColour(palette), paper), 3)
                << colour.name().toStdString() << " on " << paper.name().toStdString();
        }
    }
}

TEST(Colours, QuietLettersAreLessBlackThanOthers) {
    const QPalette palette = Made(Qt::white, Qt::black, Qt::blue);
    EXPECT_LT(Contrast(QuietColour(palette), Qt::white), 12);
    EXPECT_EQ(QuietColour(Made(Qt::white, QColor(0x76, 0x76, 0x76), Qt::blue)),
              QColor(0x76, 0x76, 0x76));
}

TEST(Colours, StayWhereTheyCanBeToldApart) {
    EXPECT_EQ(LinkColour(Made(Qt::white, Qt::black, Qt::blue)), QColor(Qt::blue));
    EXPECT_EQ(LinkColour(Made(Qt::black, Qt::white, Qt::cyan)), QColor(Qt::cyan));
}

}  // namespace
}  // namespace orvik
