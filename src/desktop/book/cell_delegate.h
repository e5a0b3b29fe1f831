// Typing in a cell of a Book window's table.

#pragma once

#include <QStyledItemDelegate>

#include "desktop/book/record_edits.h"

namespace orvik {

class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT
 public:
    // The edits must outlive this.
    CellDelegate(RecordEdits& edits, QObject* parent);

    [[nodiscard]] QWidget* createEditor(QWidget* parent,
                                        const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    // Whether what is typed in this editor is refused; then it is told why.
    [[nodiscard]] bool refuses(const QObject& editor) const;

 protected:
    // What is refused stays in its field, so that it can be put right.
    bool eventFilter(QObject* editor, QEvent* event) override;

 private:
    RecordEdits& edits_;
};

}  // namespace orvik
