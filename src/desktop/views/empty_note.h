// What a window without a book says: what a user can do first.

#pragma once

#include <QFrame>

namespace orvik {

class EmptyNote : public QFrame {
    Q_OBJECT
 public:
    explicit EmptyNote(QWidget* parent);

    // Puts it in the middle of an area; it is shown if it is wanted and fits.
    void place(const QRect& area, bool wanted);

 signals:
    // The links.
    void openAsked();
    void extractAsked();
    void bookAsked();
};

}  // namespace orvik
