#include "desktop/book/cell_delegate.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "desktop/book/book_table_model.h"
#include "desktop/text/short_text.h"

namespace orvik {
namespace {

constexpr const char* kColumn = "editedColumn";

bool EndsTyping(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    switch (static_cast<const QKeyEvent&>(event).key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return true;
        default:
            return false;
    }
}

}  // namespace

CellDelegate::CellDelegate(RecordEdits& edits, QObject* parent)
    : QStyledItemDelegate(parent), edits_(edits) {}

QWidget* CellDelegate::createEditor(QWidget* parent,
                                    const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
    auto* const editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("cellEditor"));
    editor->setAccessibleName(BookTableModel::titleOf(static_cast<book::Column>(index.column())));
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setProperty(kColumn, index.column());
    LimitLength(*editor, kMostTyped);
    return editor;
}

bool CellDelegate::eventFilter(QObject* editor, QEvent* event) {
    return (EndsTyping(*event) && refuses(*editor)) ||
           QStyledItemDelegate::eventFilter(editor, event);
}

bool CellDelegate::refuses(const QObject& editor) const {
    const auto* const field = qobject_cast<const QLineEdit*>(&editor);
    if (field == nullptr || !field->isModified()) {
        return false;
    }
    const auto what = BookTableModel::editableIn(field->property(kColumn).toInt());
    const QString why = what ? edits_.refusal(*what, field->text()) : QString();
    if (!why.isEmpty()) {
        edits_.tell(why);
    }
    return !why.isEmpty();
}

}  // namespace orvik
