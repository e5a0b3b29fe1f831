// The page of the Book window's panel with records that may be one person.

#pragma once

#include <QWidget>

#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "platform/file_system.h"

namespace orvik {

class DuplicatesPage : public QWidget {
    Q_OBJECT
 public:
    // All must outlive the page.
    DuplicatesPage(BookDocument& document, BookWorker& worker, FileSystem& files, QWidget* parent);

 signals:
    // The table is to show this record.
    void recordAsked(std::uint32_t record);

 private:
    BookDocument& document_;
    BookWorker& worker_;
    FileSystem& files_;
};

}  // namespace orvik
