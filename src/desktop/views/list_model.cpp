#include "desktop/views/list_model.h"

#include <algorithm>
#include <limits>

#include "desktop/text/text_codec.h"

namespace orvik {

ListModel::ListModel(const ListBox& box, QObject* parent) : QAbstractListModel(parent), box_(box) {}

void ListModel::refresh() {
    constexpr std::size_t kMostRows = std::numeric_limits<int>::max();
    beginResetModel();
    rows_ = static_cast<int>(std::min(box_.Items().size(), kMostRows));
    endResetModel();
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    const auto row = static_cast<std::size_t>(index.row());
    return row < box_.Items().size() ? ToLetters(box_.Items()[row]) : QString();
}

}  // namespace orvik
