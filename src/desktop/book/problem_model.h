// Problems as the rows of a table: those of a kind below a row that says how many they are. Texts
// are made when a row is seen.

#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

#include "desktop/book/problem_list.h"

namespace orvik {

class ProblemModel : public QAbstractTableModel {
    Q_OBJECT
 public:
    enum Column { kWhat, kWho, kWhere, kColumns };

    // Both must outlive the model.
    ProblemModel(const BookDocument& document, const ProblemList& list, QObject* parent);

    // Shows one kind alone; nothing shows all.
    void setKind(std::optional<book::ProblemKind> kind);
    // Tells the view that the list is another one.
    void renew();

    // The problem of a row; null for a row that says what is below it.
    [[nodiscard]] const book::Problem* at(int row) const;
    // The first row with a problem at this row or behind it, else before it; -1 for none.
    [[nodiscard]] int nearestTo(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation way, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    // The rows that say what is below them.
    [[nodiscard]] std::vector<int> headings() const;
    // "Bad addresses (12)"
    [[nodiscard]] QString headingOf(book::ProblemKind kind) const;

 private:
    struct Section {
        book::ProblemKind Kind;
        int First = 0;  // the row of its heading
    };

    void makeSections();
    [[nodiscard]] const Section* sectionAt(int row) const;

    const BookDocument& document_;
    const ProblemList& list_;
    std::optional<book::ProblemKind> kind_;
    std::vector<Section> sections_;
    int rows_ = 0;
};

}  // namespace orvik
