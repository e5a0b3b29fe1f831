// A button that looks like a link: it belongs to a sentence.

#pragma once

#include <QAbstractButton>

namespace orvik {

class LinkButton : public QAbstractButton {
    Q_OBJECT
 public:
    // The text is the button's name for a screen reader, too.
    LinkButton(const QString& name, const QString& text, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace orvik
