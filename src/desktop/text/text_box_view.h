// Shows a TextBox without losing a byte of it: lone CR and lone LF, NUL, and both encodings.
//
// The widget is filled only while it can be seen. Text goes back to the form after a real edit, in
// the encoding in which it was shown. An edit that the form refuses is undone in the document, so
// cursor and undo history survive it. What is far longer than a text may be never gets into the
// document, which would take minutes: the form refuses it by itself.
//
// The box with the focus has a frame of its own colour, which styles draw around single lines only.

#pragma once

#include <QPlainTextEdit>
#include <QString>
#include <optional>

#include "app/controls.h"
#include "app/shared_text.h"
#include "desktop/text/run_event.h"
#include "desktop/text/text_codec.h"

class QAction;

namespace orvik {

class TextBoxView : public QPlainTextEdit {
    Q_OBJECT
 public:
    // The commands behind the keys and the context menu, in place of the box's own; one that is
    // disabled does nothing.
    struct Commands {
        QAction* Copy;
        QAction* Paste;
        QAction* Delete;
        QAction* Find = nullptr;  // only in the context menu
    };

    // box must outlive the view.
    TextBoxView(TextBox& box,
                RunEvent run,
                const std::optional<Commands>& commands,
                QWidget* parent);

    // Makes the widget equal to the form. covered: something lies over it, so it is hidden and
    // empty.
    void sync(bool covered, bool editable);
    [[nodiscard]] bool isCovered() const { return covered_; }

    // The box is one line of about this many letters; Enter is the window's.
    void setSingleLine(int letters);

    // Whether the text that the running command assigns joins the undo history. Otherwise it is a
    // new text without one.
    void setKeepHistory(bool keep) { keep_history_ = keep; }

    [[nodiscard]] Encoding encoding() const { return now_.Shown; }
    // Gives the form the same letters in UTF-8, as an edit by the user. Returns false if it
    // refuses.
    bool changeToUtf8();
    // Tells the form what is selected. It does not know after it refused an edit.
    void takeSelection();

 protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

 private:
    // The form's text and the same text as the widget shows it.
    struct State {
        SharedText Bytes;
        QString Letters;
        Encoding Shown = Encoding::Utf8;
        int Anchor = 0;
        int Position = 0;
    };

    void paintFocus();
    // Runs the command that a key stands for. Returns false for any other key.
    bool runCommand(const QKeyEvent& key);
    // Whether the text is too long for the document with this one in place of the selection.
    [[nodiscard]] bool isTooLongWith(const QString& text) const;
    // Inserts such a text into the form's text only, or tells that it is too long for a line.
    void refuse(const QString& text);
    void takeEdit();
    void takeCursor();
    void syncText();
    void syncSelection();
    void showAnew();
    void showChange();
    void putBack();
    // Replaces what differs, as one step of the undo history.
    void replaceMiddle(const QString& letters);
    void setCursor(int anchor, int position);

    TextBox& box_;
    RunEvent run_;
    std::optional<Commands> commands_;
    State now_;
    State before_;  // the document's last change led from here to now_
    // The form's values that the widget shows.
    Revision text_shown_ = ~Revision{0};
    std::size_t start_shown_ = 0;
    std::size_t length_shown_ = 0;
    // The document's revision that now_ is of.
    int taken_ = 0;
    bool covered_ = true;
    bool keep_history_ = false;
    bool syncing_ = false;
    // The form is refusing a text that is not shown, and has refused one.
    bool refusing_ = false;
    bool refused_ = false;
    bool single_line_ = false;
};

}  // namespace orvik
