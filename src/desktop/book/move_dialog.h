// Move: which program the book is for, what would be carried or lost, and the save.

#pragma once

#include <QDialog>

#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "platform/file_system.h"

namespace orvik {

class MoveDialog : public QDialog {
    Q_OBJECT
 public:
    // All must outlive the dialog. The records are written in this order.
    MoveDialog(BookDocument& document,
               BookWorker& worker,
               FileSystem& files,
               BookDocument::Numbers records,
               QWidget* parent);

 signals:
    // The book was saved as it stands.
    void saved(const QString& file);

 private:
    BookDocument& document_;
    BookWorker& worker_;
    FileSystem& files_;
    BookDocument::Numbers records_;
};

}  // namespace orvik
