// A button that draws itself. Enter presses it as the space bar does, and a frame shows its focus.

#pragma once

#include <QAbstractButton>

class QPainter;

namespace orvik {

class DrawnButton : public QAbstractButton {
    Q_OBJECT
 public:
    using QAbstractButton::QAbstractButton;

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    // The frame around a part of the button, while the button has the focus.
    void drawFocus(QPainter& painter, const QRect& frame) const;
};

}  // namespace orvik
