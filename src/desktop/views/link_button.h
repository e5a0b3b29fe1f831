// A button that looks like a link: it belongs to a sentence.

#pragma once

#include "desktop/views/drawn_button.h"

namespace orvik {

class LinkButton : public DrawnButton {
    Q_OBJECT
 public:
    // The text is the button's name for a screen reader, too.
    LinkButton(const QString& name, const QString& text, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

    // The palette's colour of links, made more like that of letters where it would be hard to read
    // on this background.
    [[nodiscard]] static QColor linkColor(const QPalette& palette, const QColor& background);
    // How well a colour is read on another one: 1 not at all, 21 at best.
    [[nodiscard]] static double contrast(const QColor& color, const QColor& background);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvik
