#include "desktop/views/drawn_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace orvik {

void DrawnButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void DrawnButton::drawFocus(QPainter& painter, const QRect& frame) const {
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = frame;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

}  // namespace orvik
