// The groups of records that may be one person, a row each: what is shown is made when it is asked
// for.

#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

#include "desktop/book/duplicates.h"

namespace orvik {

// TierWords: "same", "share an address".
[[nodiscard]] QString TierWords(book::Tier tier);

class DuplicatesModel : public QAbstractTableModel {
    Q_OBJECT
 public:
    enum Column { kDecision, kTier, kRecords, kReason, kColumns };

    // Must outlive the model.
    DuplicatesModel(Duplicates& duplicates, QObject* parent);

    // Shows those of one tier alone, or of all; and those alone that nothing was said of, and that
    // can be decided about.
    void setFilter(std::optional<book::Tier> tier, bool undecided_only);

    [[nodiscard]] Duplicates::Line lineAt(int row) const {
        return rows_[static_cast<std::size_t>(row)];
    }
    // -1 for one that is not shown.
    [[nodiscard]] int rowOf(Duplicates::Line line) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation way, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
    void fill();
    void update();
    [[nodiscard]] bool isShown(Duplicates::Line line) const;
    [[nodiscard]] bool canBeTicked(Duplicates::Line line) const;
    [[nodiscard]] QString textOf(Duplicates::Line line, int column) const;

    Duplicates& duplicates_;
    std::optional<book::Tier> tier_;
    bool undecided_only_ = false;
    std::vector<Duplicates::Line> rows_;
};

}  // namespace orvik
