// The menu of the books that were opened or saved last, as all windows have it.

#pragma once

#include <QMenu>
#include <QString>

#include "store/recent_books.h"

namespace orvik {

class BooksMenu : public QMenu {
    Q_OBJECT
 public:
    // The books must outlive the menu.
    BooksMenu(RecentBooks& books, QWidget* parent);

 signals:
    void chosen(const QString& name);

 private:
    void fill();

    RecentBooks& books_;
};

}  // namespace orvik
