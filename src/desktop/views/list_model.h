// Shows the items of a list box in place: no copy is made, and no row costs anything until it is
// painted. Of a row that is longer than any screen is wide the beginning is shown.

#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QObject>
#include <QString>

#include "app/controls.h"

namespace orvik {

class ListModel : public QAbstractListModel {
    Q_OBJECT
 public:
    // box must outlive the model.
    explicit ListModel(const ListBox& box, QObject* parent = nullptr);

    // Takes over the form's row count. Between two calls the form may change its items: a row
    // beyond them is shown as an empty text.
    void refresh();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
    const ListBox& box_;
    int rows_ = 0;
    // The beginnings of the rows that are longer than any screen is wide, as far as they were asked
    // for: to find the encoding of such a row takes a look at all of it.
    mutable QHash<int, QString> beginnings_;
    mutable Revision items_begun_ = 0;
};

}  // namespace orvik
