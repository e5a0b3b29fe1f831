// What the main window says quietly about the book: that it differs from its file, what the last
// command did to the number of its entries, and, where there is no book, what to do.

#include <QAction>
#include <algorithm>
#include <array>
#include <string_view>

#include "desktop/text/plain_text.h"
#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/empty_note.h"
#include "desktop/views/list_box_view.h"
#include "desktop/views/quiet_line.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/tool_bar.h"
#include "files/form3.h"

namespace orvik {
namespace {

// The commands whose effect on the number of entries is told.
constexpr std::array<std::string_view, 10> kTold = {"mnuRemDup",
                                                    "mnuUn",
                                                    "mnuParse",
                                                    "mnuClearPaste",
                                                    "mnuClearPasteNet4",
                                                    "mnuClearPasteNet3",
                                                    "mnuPasteJuno",
                                                    "mnuOpen",
                                                    "mnuExtract",
                                                    "mnuMerge"};
// These are told of only if there was a book.
constexpr std::array<std::string_view, 3> kToldOverText = {"mnuOpen", "mnuExtract", "mnuMerge"};

}  // namespace

void Form1Window::addEmptyNote() {
    empty_note_ = new EmptyNote(centralWidget());
    connect(empty_note_, &EmptyNote::openAsked, this, [this] {
        findChild<QAction*>(QStringLiteral("mnuOpen"))->trigger();
    });
    connect(empty_note_, &EmptyNote::extractAsked, this, [this] {
        findChild<QAction*>(QStringLiteral("mnuExtract"))->trigger();
    });
    connect(empty_note_, &EmptyNote::bookAsked, this, &Form1Window::bookWindowAsked);
}

void Form1Window::addNotes() {
    empty_note_->raise();
    quiet_line_ = new QuietLine(QStringLiteral("quietLine"), centralWidget());
    module_.saved.Follow([this](const std::string& file) {
        // The automation's files are not what the user opened.
        if (form_.Caption == Form1::CaptionOf(file)) {
            books_.Add(file);
        }
    });
}

// Not in the middle of a command: counting reads the whole text.
void Form1Window::syncNotes() {
    if (desktop_.isRunning()) {
        return;
    }
    setWindowModified(module_.saved.Differs());
    const UndoHistory& history = module_.history;
    const bool another = command_seen_ != history.Commands();
    if (another || text_seen_ != form_.Text1.TextRevision()) {
        command_seen_ = history.Commands();
        text_seen_ = form_.Text1.TextRevision();
        if (another || !line_stays_) {
            quiet_line_->clear();
            line_stays_ = false;
        }
        old_book_ = module_.saved.GetFate() == SavedBook::Fate::NotSaved ? shown_book_ : QString();
        if (another && history.LastCanBeUndone()) {
            tellOfCommand();
        } else if (another && module_.EditMode && !old_book_.isEmpty() &&
                   book_seen_ != module_.WorkText.Revision()) {
            tellNotSaved();
        }
    }
    book_seen_ = module_.WorkText.Revision();
    const std::string file = Form1::FileOf(title());
    shown_book_ = file.empty() ? tr("The book") : ShortName(file);
}

void Form1Window::tellOfCommand() {
    const std::string_view title = module_.history.UndoTitle();
    const auto is_of = [&](std::string_view control) {
        return Form::CommandOf(form_.ControlNamed(control)).Title == title;
    };
    // While the chooser waits, what was read is no book yet.
    const bool told = !old_book_.isEmpty() || title == Form1::kDeleteEntries ||
                      std::any_of(kTold.begin(), kTold.end(), is_of);
    if (!told || module_.form3.Visible()) {
        return;
    }
    const std::size_t before = module_.history.EntriesBefore();
    if (before > 0 || std::none_of(kToldOverText.begin(), kToldOverText.end(), is_of)) {
        tellOfChange(title, before);
    }
}

void Form1Window::tellNotSaved() {
    quiet_line_->tell(
        tr("%1 was not saved. Leave edit mode to bring it back with Undo.").arg(old_book_));
    // Typing does not take it away.
    line_stays_ = true;
    place();
}

void Form1Window::tellOfChange(std::string_view title, std::size_t before) {
    const bool lost = before > 0 && !old_book_.isEmpty();
    line_stays_ = false;
    quiet_line_->tell(lost ? tr("%1 was not saved. Undo brings it back.").arg(old_book_)
                           : tr("%1: %2 entries before, %3 now.")
                                 .arg(ToLetters(title))
                                 .arg(before)
                                 .arg(module_.Entries().Count),
                      tr("Undo"),
                      [this] { tool_bar_->undoAction().trigger(); });
    place();
}

// The text box has a history of its own in edit mode, and what it is told of is no longer than it.
void Form1Window::runInEditMode(const NamedHandler& command, const FormEvents::Event& run) {
    const SharedText text = module_.WorkText;
    const std::size_t before = module_.Entries().Count;
    run();
    if (!text1_->isCovered() && !desktop_.isRunning() && module_.WorkText != text &&
        text1_->document()->isUndoAvailable()) {
        tellOfChange(command.Title, before);
    }
}

// Over both lists.
void Form1Window::placeEmptyNote() {
    const QWidget& list1 = *lists_.at(0).second;
    const QWidget& list2 = *lists_.at(1).second;
    const bool empty =
        module_.WorkText.empty() && form_.List1.Items().empty() && form_.List2.Items().empty();
    const bool had_focus = empty_note_->isAncestorOf(focusWidget());
    empty_note_->place(list1.geometry().united(list2.geometry()),
                       empty && form_.List1.Visible && !form_.List3.Visible && !isExtracting());
    if (had_focus && empty_note_->isHidden()) {
        lists_.front().second->setFocus();
    }
}

}  // namespace orvik
