// The records of a group beside each other, under a sentence that says what is seen.

#pragma once

#include <QWidget>

#include "desktop/book/book_document.h"

class QLabel;
class QTableView;

namespace orvik {

class SideModel;

class SideView : public QWidget {
    Q_OBJECT
 public:
    // The document must outlive the view.
    SideView(const BookDocument& document, QWidget* parent);

    // Shows these records; or none, and says why.
    void show(const BookDocument::Numbers& records);
    void say(const QString& text);

    [[nodiscard]] const SideModel& model() const { return *model_; }

 signals:
    // The table of the book is to show this record.
    void recordAsked(std::uint32_t record);

 private:
    const BookDocument& document_;
    SideModel* model_;
    QLabel* heading_;
    QTableView* table_;
};

}  // namespace orvik
