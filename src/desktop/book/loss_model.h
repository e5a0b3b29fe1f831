// What becomes of a book's values, as a tree: a row for each kind and reason, and below it the
// values.

#pragma once

#include <QAbstractItemModel>
#include <cstddef>
#include <memory>
#include <vector>

#include "desktop/book/move_preview.h"

namespace orvik {

class LossModel : public QAbstractItemModel {
    Q_OBJECT
 public:
    using QAbstractItemModel::QAbstractItemModel;

    // So many rows are shown at a time; the last one stands for those behind it.
    static constexpr int kPage = 1000;

    // Shows what a preview tells, or nothing.
    void show(std::shared_ptr<const MovePreview> preview);

    // Whether a row stands for more of them, and what shows the next ones in its place.
    [[nodiscard]] bool isMore(const QModelIndex& index) const;
    void showMore(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row,
                                    int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
    // How much of a row's children is there.
    struct Page {
        int Shown = 0;
        bool HasMore = false;
    };
    // Of a group's values, or of the groups.
    [[nodiscard]] std::size_t allBelow(const QModelIndex& parent) const;
    [[nodiscard]] Page& pageOf(const QModelIndex& parent);
    [[nodiscard]] const Page& pageOf(const QModelIndex& parent) const;
    [[nodiscard]] static Page firstPage(std::size_t all);
    [[nodiscard]] QString textOf(const QModelIndex& index, bool with_folder) const;

    std::shared_ptr<const MovePreview> preview_;
    Page groups_;
    std::vector<Page> pages_;  // by group
};

}  // namespace orvik
