// The heading of a list, as a table has one: it names the list, and a click on it sorts.

#pragma once

#include "desktop/views/drawn_button.h"

namespace orvik {

class ListHeading : public DrawnButton {
    Q_OBJECT
 public:
    // does: what a click does, for the tool tip and a screen reader.
    ListHeading(const QString& name, const QString& text, const QString& does, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvik
