// The page of the Book window's panel with all that is known of one person.

#pragma once

#include <QWidget>
#include <cstdint>
#include <optional>

#include "desktop/book/book_checks.h"
#include "desktop/book/book_document.h"

class QLabel;
class QPlainTextEdit;
class QTableView;

namespace orvik {

class PersonModel;
class SourceText;

class PersonPage : public QWidget {
    Q_OBJECT
 public:
    // Both must outlive the page.
    PersonPage(BookDocument& document, BookChecks& checks, QWidget* parent);

    // Shows the record if there is one, else how many are selected.
    void show(const BookDocument::Numbers& selected);

 signals:
    // The table is to show this record: a member of a list, or a list that the person is in.
    void recordAsked(std::uint32_t record);

 protected:
    void showEvent(QShowEvent* event) override;

 private:
    void makeTable();
    void arrange();
    void refresh();
    void showRecord(std::optional<BookDocument::Number> record);
    void showPicture(const book::Contact& contact);
    void showValue();
    void copy();
    void follow(const QModelIndex& index);
    [[nodiscard]] QString originWords(const book::Contact& contact) const;

    BookDocument& document_;
    BookChecks& checks_;
    BookDocument::Numbers selected_;
    std::optional<BookDocument::Number> record_;

    QLabel* title_;
    QLabel* origin_;
    QLabel* picture_;
    PersonModel* model_;
    QTableView* table_;
    QPlainTextEdit* value_;
    SourceText* source_;
};

}  // namespace orvik
