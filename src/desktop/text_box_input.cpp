// The text box's keys, context menu, clipboard and drag.

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include "desktop/clipboard.h"
#include "desktop/text_box_view.h"

namespace orvik {

void TextBoxView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::InsertLineSeparator)) {
        // Shift+Enter is Enter; a line separator would be a lone CR.
        QKeyEvent enter(event->type(), Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QPlainTextEdit::keyPressEvent(&enter);
    } else if (!commands_ || !runCommand(*event)) {
        QPlainTextEdit::keyPressEvent(event);
    }
}

// Without a selection nothing is copied, so the clipboard keeps what it has.
bool TextBoxView::runCommand(const QKeyEvent& key) {
    const bool selected = textCursor().hasSelection();
    const bool cuts = key.matches(QKeySequence::Cut);
    const bool copies = cuts || key.matches(QKeySequence::Copy);
    const bool deletes = cuts || (key.matches(QKeySequence::Delete) && selected);
    if (key.matches(QKeySequence::Paste)) {
        commands_->Paste->trigger();
        return true;
    }
    if (copies && selected) {
        commands_->Copy->trigger();
    }
    if (deletes && selected) {
        commands_->Delete->trigger();
    }
    return copies || deletes;
}

void TextBoxView::contextMenuEvent(QContextMenuEvent* event) {
    if (!commands_) {
        QPlainTextEdit::contextMenuEvent(event);
        return;
    }
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const undo = menu->addAction(tr("&Undo"), this, &QPlainTextEdit::undo);
    undo->setEnabled(document()->isUndoAvailable());
    QAction* const redo = menu->addAction(tr("&Redo"), this, &QPlainTextEdit::redo);
    redo->setEnabled(document()->isRedoAvailable());
    menu->addSeparator();
    menu->addActions({commands_->Copy, commands_->Paste, commands_->Delete});
    menu->addSeparator();
    menu->addAction(tr("Select &All"), this, &QPlainTextEdit::selectAll);
    menu->popup(event->globalPos());
}

QMimeData* TextBoxView::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    return MimeFromBoxText(document()->toRawText().mid(
        cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()));
}

bool TextBoxView::canInsertFromMimeData(const QMimeData* source) const {
    // A file is opened by the window, not pasted as its name.
    return source->hasText() && !source->hasUrls();
}

void TextBoxView::insertFromMimeData(const QMimeData* source) {
    QTextCursor cursor = textCursor();
    cursor.insertText(BoxTextFromMime(*source));
    setTextCursor(cursor);
    ensureCursorVisible();
}

}  // namespace orvik
