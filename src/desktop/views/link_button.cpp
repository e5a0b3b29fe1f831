#include "desktop/views/link_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace orvik {
namespace {

constexpr int kAroundLink = 2;

}  // namespace

LinkButton::LinkButton(const QString& name, const QString& text, QWidget* parent)
    : QAbstractButton(parent) {
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

void LinkButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    painter.setPen(palette().color(isEnabled() ? QPalette::Link : QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (hasFocus()) {
        QStyleOptionFocusRect frame;
        frame.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
    }
}

// A link is followed with Enter, a button pressed with the space bar.
void LinkButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

}  // namespace orvik
