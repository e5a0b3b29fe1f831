// Shows the items of a list box in place: no copy is made, and no row costs anything until it is
// painted.

#pragma once

#include <QAbstractListModel>
#include <QObject>

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
};

}  // namespace orvik
