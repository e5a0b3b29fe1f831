// All that is known of one record as rows: its fields in their order, then the lists that it is in.
// Texts are made when a row is seen.

#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

#include "book/csv_kinds.h"
#include "desktop/book/book_checks.h"
#include "desktop/book/book_document.h"

namespace orvik {

class PersonModel : public QAbstractTableModel {
    Q_OBJECT
 public:
    enum Column { kWhat, kValue, kFrom, kColumns };

    // Both must outlive the model.
    PersonModel(const BookDocument& document, const BookChecks& checks, QObject* parent);

    // Nothing for no record.
    void setRecord(std::optional<BookDocument::Number> record);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation way, int role) const override;

    // The value of a row with its line breaks; most is about how many bytes of it.
    [[nodiscard]] QString valueOf(int row, std::size_t most) const;
    // The record that a row is about: a member, or a list.
    [[nodiscard]] std::optional<BookDocument::Number> recordOf(int row) const;

 private:
    [[nodiscard]] const book::Property& fieldAt(int row) const;
    [[nodiscard]] bool isField(int row) const;
    [[nodiscard]] QString placeOf(const book::Property& field) const;
    [[nodiscard]] std::string textOf(int row, std::size_t most) const;

    const BookDocument& document_;
    const BookChecks& checks_;
    std::optional<BookDocument::Number> record_;
    book::GroupLabels labels_;
    BookDocument::Numbers lists_;
};

}  // namespace orvik
