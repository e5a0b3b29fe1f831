// What the worker of a Book window does, how far it is, and a button that ends it.

#pragma once

#include <QWidget>

#include "desktop/book/book_worker.h"

class QLabel;
class QProgressBar;

namespace orvik {

class WorkBar : public QWidget {
    Q_OBJECT
 public:
    // The worker must outlive the bar, which is shown while it works. Esc cancels in the window.
    WorkBar(BookWorker& worker, QWidget* window);

 private:
    void show(const QString& doing, int percent);

    BookWorker& worker_;
    QLabel* label_;
    QProgressBar* progress_;
};

}  // namespace orvik
