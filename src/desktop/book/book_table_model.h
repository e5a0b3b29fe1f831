// The records of a Book window as a table: texts are made when they are painted.

#pragma once

#include <QAbstractTableModel>
#include <optional>

#include "book/table_columns.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_rows.h"
#include "desktop/book/record_edits.h"

namespace orvik {

class BookTableModel : public QAbstractTableModel {
    Q_OBJECT
 public:
    // All must outlive the model.
    BookTableModel(const BookDocument& document,
                   const BookRows& rows,
                   RecordEdits& edits,
                   QObject* parent);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section,
                                      Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    [[nodiscard]] BookDocument::Number recordAt(int row) const;
    // What can be typed in a column.
    [[nodiscard]] static std::optional<book::Editable> editableIn(int column);
    [[nodiscard]] static QString titleOf(book::Column column);

 private:
    [[nodiscard]] QString textAt(const QModelIndex& index, qsizetype most) const;
    [[nodiscard]] QString tipAt(const QModelIndex& index) const;

    const BookDocument& document_;
    const BookRows& rows_;
    RecordEdits& edits_;
};

}  // namespace orvik
