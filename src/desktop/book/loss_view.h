// The tree of what becomes of a book's values. Enter opens and closes a row, or shows more of them.

#pragma once

#include <QTreeView>
#include <memory>

#include "desktop/book/loss_model.h"

namespace orvik {

class LossView : public QTreeView {
    Q_OBJECT
 public:
    explicit LossView(QWidget* parent);

    // Shows what a preview tells, with what is lost in sight.
    void showPreview(const std::shared_ptr<const MovePreview>& preview);

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void open(const QModelIndex& index);
    void showMore(const QModelIndex& index);

    LossModel model_;
};

}  // namespace orvik
