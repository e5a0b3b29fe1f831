// The text box's focus, keys, context menu, clipboard and drag.

#include <QAction>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include "desktop/text/colours.h"
#include "desktop/text/system_clipboard.h"
#include "desktop/text/text_box_view.h"

namespace orvik {

void TextBoxView::setSingleLine(int letters) {
    single_line_ = true;
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumWidth(fontMetrics().averageCharWidth() * letters);
    const int around = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin());
    setFixedHeight(fontMetrics().lineSpacing() + around);
}

bool TextBoxView::event(QEvent* event) {
    const bool taken = QPlainTextEdit::event(event);
    if (event->type() == QEvent::Paint && hasFocus()) {
        paintFocus();
    }
    return taken;
}

void TextBoxView::paintFocus() {
    QPainter painter(this);
    painter.setPen(FocusColour(palette()));
    QRect line = rect();
    for (int i = 0; i < frameWidth(); ++i) {
        painter.drawRect(line.adjusted(0, 0, -1, -1));
        line.adjust(1, 1, -1, -1);
    }
}

void TextBoxView::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    // A tab arrives only where there is nothing else to go to.
    const bool tab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (tab || (single_line_ && (key == Qt::Key_Return || key == Qt::Key_Enter))) {
        event->ignore();
    } else if (event->matches(QKeySequence::InsertLineSeparator)) {
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
    if (commands_->Find != nullptr) {
        menu->addAction(commands_->Find);
    }
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
    QString text = BoxTextFromMime(*source);
    if (single_line_) {
        // A line that is copied as a whole ends in a break.
        while (text.endsWith(QChar::ParagraphSeparator)) {
            text.chop(1);
        }
        text.replace(QChar::ParagraphSeparator, u' ').replace(QChar::LineSeparator, u' ');
    }
    if (isTooLongWith(text)) {
        refuse(text);
        return;
    }
    cursor.insertText(text);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TextBoxView::inputMethodEvent(QInputMethodEvent* event) {
    if (!isReadOnly() && isTooLongWith(event->commitString())) {
        refuse(FromLineBreaks(event->commitString()));
        event->accept();
    } else if (isTooLongWith(event->preeditString())) {
        // What is not yet typed is not yet refused either, but it is laid out.
        event->ignore();
    } else {
        QPlainTextEdit::inputMethodEvent(event);
    }
}

}  // namespace orvik
