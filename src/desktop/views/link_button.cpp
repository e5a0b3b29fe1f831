#include "desktop/views/link_button.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace orvik {
namespace {

constexpr int kAroundLink = 2;

// What people who see less can read, by the rules for pages of the web.
constexpr double kReadable = 4.5;

// How bright a colour is, 0 to 1, by the same rules.
double Brightness(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

}  // namespace

LinkButton::LinkButton(const QString& name, const QString& text, QWidget* parent)
    : DrawnButton(parent) {
    setObjectName(name);
    setText(text);
    setAccessibleName(text);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize LinkButton::sizeHint() const {
    return fontMetrics().size(Qt::TextShowMnemonic, text()) +
           QSize(2 * kAroundLink, 2 * kAroundLink);
}

double LinkButton::contrast(const QColor& color, const QColor& background) {
    const auto [darker, brighter] = std::minmax({Brightness(color), Brightness(background)});
    return (brighter + 0.05) / (darker + 0.05);
}

QColor LinkButton::linkColor(const QPalette& palette, const QColor& background) {
    const QColor link = palette.color(QPalette::Link);
    const QColor letters = palette.color(QPalette::WindowText);
    constexpr int kSteps = 10;
    for (int step = 0; step < kSteps; ++step) {
        const auto between = [step](float from, float to) {
            return from + (to - from) * static_cast<float>(step) / kSteps;
        };
        const QColor mixed = QColor::fromRgbF(between(link.redF(), letters.redF()),
                                              between(link.greenF(), letters.greenF()),
                                              between(link.blueF(), letters.blueF()));
        if (contrast(mixed, background) >= kReadable) {
            return mixed;
        }
    }
    return letters;
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    painter.setPen(isEnabled()
                       ? linkColor(palette(), palette().color(parentWidget()->backgroundRole()))
                       : palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignCenter, text());
    drawFocus(painter, rect());
}

}  // namespace orvik
