// The page of the Book window's panel with all that is known of one person.

#pragma once

#include <QWidget>

#include "desktop/book/book_document.h"

namespace orvik {

class PersonPage : public QWidget {
    Q_OBJECT
 public:
    // The document must outlive the page.
    PersonPage(BookDocument& document, QWidget* parent);

    // Shows the record if there is one, else how many are selected.
    void show(const BookDocument::Numbers& selected);

 private:
    BookDocument& document_;
};

}  // namespace orvik
