// The page of the Book window's panel with what was assumed about the files, and what looks wrong.

#pragma once

#include <QWidget>

#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"

namespace orvik {

class ProblemsPage : public QWidget {
    Q_OBJECT
 public:
    // Both must outlive the page.
    ProblemsPage(BookDocument& document, BookWorker& worker, QWidget* parent);

 signals:
    // The table is to show this record.
    void recordAsked(std::uint32_t record);

 private:
    BookDocument& document_;
    BookWorker& worker_;
};

}  // namespace orvik
