// Records beside each other: a row for each value, a column for each record, and behind them what
// merging would make of it.

#pragma once

#include <QAbstractTableModel>
#include <cstddef>
#include <vector>

#include "book/csv_kinds.h"
#include "book/match/side_by_side.h"
#include "desktop/book/book_document.h"

namespace orvik {

class SideModel : public QAbstractTableModel {
    Q_OBJECT
 public:
    static constexpr int kField = 0;
    static constexpr int kFirstRecord = 1;
    // So many records are shown of a group, and so many fields in all.
    static constexpr std::size_t kMostRecords = 64;
    static constexpr std::size_t kMostFields = 20'000;

    // The document must outlive the model.
    SideModel(const BookDocument& document, QObject* parent);

    // Shows these records; none where they have too many fields.
    void show(const BookDocument::Numbers& records);
    [[nodiscard]] const BookDocument::Numbers& records() const { return records_; }
    [[nodiscard]] const book::SideBySide& side() const { return side_; }
    [[nodiscard]] int mergedColumn() const {
        return kFirstRecord + static_cast<int>(records_.size());
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation way, int role) const override;

 private:
    [[nodiscard]] const book::SideRow& rowAt(int row) const {
        return side_.Rows[static_cast<std::size_t>(row)];
    }
    [[nodiscard]] const book::SideValue* valueAt(const book::SideRow& row, int column) const;
    [[nodiscard]] QString fieldOf(const book::SideRow& row) const;
    [[nodiscard]] QString valueOf(const book::SideValue& value) const;
    [[nodiscard]] QString mergedOf(const book::SideRow& row) const;
    [[nodiscard]] QString textOf(const book::SideRow& row, int column) const;
    [[nodiscard]] QString placeOf(const book::Origin& from) const;

    const BookDocument& document_;
    BookDocument::Numbers records_;
    book::SideBySide side_;
    bool is_one_file_ = false;
    // By record.
    std::vector<book::GroupLabels> labels_;
};

}  // namespace orvik
