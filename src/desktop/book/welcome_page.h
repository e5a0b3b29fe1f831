// What a Book window without a book says: what it does, and how to begin.

#pragma once

#include <QWidget>

namespace orvik {

class WelcomePage : public QWidget {
    Q_OBJECT
 public:
    explicit WelcomePage(QWidget* parent);

 signals:
    void openAsked();
};

}  // namespace orvik
