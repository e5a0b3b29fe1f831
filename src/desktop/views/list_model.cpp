#include "desktop/views/list_model.h"

#include <algorithm>
#include <limits>

#include "desktop/text/short_text.h"
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
    if (row >= box_.Items().size()) {
        return QString();
    }
    const std::string_view item = box_.Items()[row];
    if (item.size() <= static_cast<std::size_t>(kMostShown)) {
        return ToLetters(item);
    }
    if (items_begun_ != box_.ItemsRevision()) {
        items_begun_ = box_.ItemsRevision();
        beginnings_.clear();
    }
    QString& beginning = beginnings_[index.row()];
    if (beginning.isEmpty()) {
        beginning = ToShownLetters(item);
    }
    return beginning;
}

}  // namespace orvik
