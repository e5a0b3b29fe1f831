#include "desktop/text/text_box_view.h"

#include <QScopedValueRollback>
#include <QTextDocument>
#include <algorithm>
#include <utility>

#include "app/working_text.h"
#include "desktop/text/short_text.h"

namespace orvik {
namespace {

// More than any text that a form keeps in a box.
constexpr std::size_t kMostShownBytes = 2 * kTextLimit;

}  // namespace

TextBoxView::TextBoxView(TextBox& box,
                         RunEvent run,
                         const std::optional<Commands>& commands,
                         QWidget* parent)
    : QPlainTextEdit(parent), box_(box), run_(std::move(run)), commands_(commands) {
    setReadOnly(true);
    // No form of the text has tabs of its own, and a box that keeps the key keeps the user.
    setTabChangesFocus(true);
    hide();
    taken_ = document()->revision();
    connect(this, &QPlainTextEdit::textChanged, this, [this] { takeEdit(); });
    connect(this, &QPlainTextEdit::selectionChanged, this, [this] { takeCursor(); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { takeCursor(); });
}

void TextBoxView::sync(bool covered, bool editable) {
    const QScopedValueRollback syncing(syncing_, true);
    if (covered_ != covered) {
        covered_ = covered;
        now_ = before_ = {};
        clear();
        text_shown_ = ~Revision{0};
        setVisible(!covered);
    }
    if (!covered_) {
        syncText();
        syncSelection();
    }
    if (isEnabled() != box_.Enabled) {
        setEnabled(box_.Enabled);
    }
    if (isReadOnly() == editable) {
        setReadOnly(!editable);
    }
    taken_ = document()->revision();
}

void TextBoxView::syncText() {
    if (text_shown_ == box_.TextRevision()) {
        return;
    }
    if (refusing_ || box_.Text().size() > kMostShownBytes) {
        refused_ = true;
        return;
    }
    text_shown_ = box_.TextRevision();
    const bool refused = std::exchange(refused_, false);
    if (box_.Text() == now_.Bytes) {
        if (refused) {
            // Cursor and selection stay, as after any other edit that is refused.
            start_shown_ = box_.SelStart;
            length_shown_ = box_.SelLength;
        }
        return;
    }
    if (box_.Text() == before_.Bytes && document()->isUndoAvailable()) {
        putBack();
    } else if (keep_history_) {
        showChange();
    } else {
        showAnew();
    }
}

void TextBoxView::syncSelection() {
    if (refusing_ || refused_ ||
        (start_shown_ == box_.SelStart && length_shown_ == box_.SelLength)) {
        return;
    }
    start_shown_ = box_.SelStart;
    length_shown_ = box_.SelLength;
    const auto position = [this](std::size_t offset) {
        return static_cast<int>(BoxPosition(now_.Bytes, offset, now_.Shown));
    };
    setCursor(position(start_shown_), position(start_shown_ + length_shown_));
}

void TextBoxView::showAnew() {
    const Encoding shown = EncodingOf(box_.Text());
    before_ = {};
    now_ = {box_.Text(), ToBoxText(box_.Text(), shown), shown, 0, 0};
    setPlainText(now_.Letters);
    start_shown_ = length_shown_ = 0;
}

void TextBoxView::showChange() {
    const Encoding shown = now_.Shown == Encoding::Utf8 ? EncodingOf(box_.Text()) : now_.Shown;
    before_ = std::move(now_);
    now_ = {box_.Text(), ToBoxText(box_.Text(), shown), shown, 0, 0};
    replaceMiddle(now_.Letters);
}

// The document undoes a run of typed letters as one, so the letters before the refused one come
// back in a second step.
void TextBoxView::putBack() {
    now_ = before_;
    document()->undo();
    replaceMiddle(now_.Letters);
    document()->clearUndoRedoStacks(QTextDocument::RedoStack);
    setCursor(now_.Anchor, now_.Position);
    start_shown_ = box_.SelStart;
    length_shown_ = box_.SelLength;
}

void TextBoxView::replaceMiddle(const QString& letters) {
    const QString shown = document()->toRawText();
    if (shown == letters) {
        return;
    }
    const auto same = std::mismatch(shown.begin(), shown.end(), letters.begin(), letters.end());
    auto start = same.first - shown.begin();
    // A pair of surrogates is one letter.
    if (start > 0 && shown.at(start - 1).isHighSurrogate()) {
        --start;
    }
    const auto most = std::min(shown.size(), letters.size()) - start;
    qsizetype tail = 0;
    while (tail < most &&
           shown.at(shown.size() - 1 - tail) == letters.at(letters.size() - 1 - tail)) {
        ++tail;
    }
    if (tail > 0 && shown.at(shown.size() - tail).isLowSurrogate()) {
        --tail;
    }
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(start));
    cursor.setPosition(static_cast<int>(shown.size() - tail), QTextCursor::KeepAnchor);
    cursor.insertText(letters.mid(start, letters.size() - tail - start));
}

void TextBoxView::setCursor(int anchor, int position) {
    now_.Anchor = anchor;
    now_.Position = position;
    QTextCursor cursor(document());
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

bool TextBoxView::isTooLongWith(const QString& text) const {
    const QTextCursor cursor = textCursor();
    const auto selected = cursor.selectionEnd() - cursor.selectionStart();
    // A letter takes a byte at least.
    const auto most = static_cast<qsizetype>(kTextLimit);
    return text.size() > selected + most - std::min(now_.Letters.size(), most);
}

void TextBoxView::refuse(const QString& text) {
    if (single_line_) {
        TellTooLong(*this, kMostTyped);
        return;
    }
    const auto [start, end] = std::minmax(now_.Anchor, now_.Position);
    const QString whole = now_.Letters.left(start) + text + now_.Letters.mid(end);
    Encoding encoding = now_.Shown;
    const std::string bytes = FromBoxText(whole, encoding);
    const std::size_t cursor = ByteOffset(whole, start + text.size(), encoding);
    refused_ = true;
    text_shown_ = ~Revision{0};
    run_([&] {
        const QScopedValueRollback refusing(refusing_, true);
        box_.EditByUser(bytes, cursor);
    });
}

void TextBoxView::takeEdit() {
    if (syncing_) {
        return;
    }
    taken_ = document()->revision();
    State edited{{}, document()->toRawText(), now_.Shown, 0, textCursor().position()};
    if (edited.Letters == now_.Letters) {
        return;
    }
    edited.Bytes = FromBoxText(edited.Letters, edited.Shown);
    edited.Anchor = textCursor().anchor();
    before_ = std::move(now_);
    now_ = std::move(edited);
    // The widget is ahead of the form now; whatever the form makes of it is looked at.
    text_shown_ = ~Revision{0};
    run_([this] {
        box_.EditByUser(now_.Bytes, ByteOffset(now_.Letters, now_.Position, now_.Shown));
    });
}

void TextBoxView::takeCursor() {
    // While an edit is under way, the cursor is ahead of the text.
    if (syncing_ || document()->revision() != taken_) {
        return;
    }
    now_.Anchor = textCursor().anchor();
    now_.Position = textCursor().position();
    takeSelection();
}

void TextBoxView::takeSelection() {
    if (covered_) {
        return;
    }
    const auto [start, end] = std::minmax(now_.Anchor, now_.Position);
    start_shown_ = ByteOffset(now_.Letters, start, now_.Shown);
    length_shown_ = ByteOffset(now_.Letters, end, now_.Shown) - start_shown_;
    box_.Select(start_shown_, length_shown_);
}

bool TextBoxView::changeToUtf8() {
    Encoding utf8 = Encoding::Utf8;
    const SharedText text = FromBoxText(now_.Letters, utf8);
    const auto [first, last] = std::minmax(now_.Anchor, now_.Position);
    const std::size_t start = ByteOffset(now_.Letters, first, utf8);
    const std::size_t end = ByteOffset(now_.Letters, last, utf8);
    box_.EditByUser(text, end);
    if (box_.Text() != text) {
        return false;
    }
    now_.Bytes = text;
    now_.Shown = utf8;
    box_.Select(start, end - start);
    return true;
}

}  // namespace orvik
