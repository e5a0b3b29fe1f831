// Books that nobody has saved: the open one is kept, and those of programs that ended are offered.

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/session/recovery_keeper.h"
#include "desktop/session/recovery_offer.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/quiet_line.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/tool_bar.h"
#include "files/form3.h"
#include "files/recovery_copy.h"

namespace orvik {
namespace {

// The title of the step that can be undone.
constexpr std::string_view kRestore = "Restore";
// It is restored for as long as it takes.
constexpr std::string_view kSaveLeft = "Save As";

}  // namespace

void Form1Window::keepWith(RecoveryKeeper& keeper) {
    keeper_ = &keeper;
    offer_.setSingleShot(true);
    connect(&offer_, &QTimer::timeout, this, &Form1Window::askAboutLeftBooks);
    connect(&keeper, &RecoveryKeeper::failed, this, &Form1Window::tellNotKept);
}

void Form1Window::offerLeftBooks() {
    offers_left_ = true;
    syncRecovery();
}

void Form1Window::syncRecovery() {
    if (keeper_ == nullptr || desktop_.isRunning()) {
        return;
    }
    if (module_.saved.GetFate() == SavedBook::Fate::NotSaved) {
        keeper_->goesOnUnsaved(module_);
    }
    // What the chooser asks about is no book yet, and the one before it stays.
    if (module_.form3.Visible()) {
        return;
    }
    syncRestored();
    keeper_->see(module_, title());
    if (offers_left_ && !module_.EditMode) {
        offers_left_ = false;
        offer_.start(0);
    }
}

// Who undoes a Restore has neither saved the book nor said No to it.
void Form1Window::syncRestored() {
    if (!before_restore_) {
        // Another book was opened since.
        if (module_.history.RedoTitle() == kRestore) {
            keeper_->goesOnUnsaved(module_);
        }
        return;
    }
    const auto [compared, marks] = *before_restore_;
    if (module_.saved.Marks() != marks) {
        before_restore_.reset();
    } else if (module_.history.RedoTitle() == kRestore) {
        before_restore_.reset();
        module_.saved.CompareWith(compared);
        setWindowModified(module_.saved.Differs());
        keeper_->letGo();
    }
}

// All of them in one event: the book that is open in the end is kept behind it.
void Form1Window::askAboutLeftBooks() {
    std::optional<RecoveryStore::Left> restored;
    const bool taken = !desktop_.isRunning() && events_.run([&] {
        for (RecoveryStore::Left& left : keeper_->leftBooks()) {
            if (left.Copy.Entries == kUnknownEntries) {
                left.Copy.Entries = module_.Entries(left.Copy.Text, left.Copy.Mode).Count;
            }
            switch (AskAboutLeft(desktop_, left.Copy)) {
                case LeftAnswer::Restore:
                    if (restore(left.Copy)) {
                        // One that it takes the place of stays where it was.
                        restored = std::move(left);
                    }
                    break;
                case LeftAnswer::SaveAs:
                    if (saveLeft(left.Copy)) {
                        keeper_->discard(left);
                    }
                    break;
                case LeftAnswer::Discard:
                    keeper_->discard(left);
                    break;
                case LeftAnswer::NotNow:
                    break;
            }
        }
        if (restored) {
            // Nobody was asked about the book that was open.
            keeper_->goesOnUnsaved(module_);
            keeper_->adopt(*restored);
        }
    });
    if (!taken) {
        offers_left_ = !desktop_.hasEnded();
    } else if (restored && !desktop_.hasEnded()) {
        const RecoveryCopy& copy = restored->Copy;
        if (copy.EditMode) {
            events_.run([&] {
                module_.history.Run(Form::CommandOf(form_.ControlNamed("mnuEntEd")).Title,
                                    [&] { form_.ResumeEditing(copy); });
            });
        }
        tellRestored();
    }
}

void Form1Window::tellRestored() {
    if (module_.EditMode) {
        quiet_line_->tell(
            tr("%1 was restored. It is not saved. Leave edit mode to take it back with Undo.")
                .arg(shown_book_));
        line_stays_ = true;
    } else {
        quiet_line_->tell(tr("%1 was restored. It is not saved.").arg(shown_book_),
                          module_.history.UndoTitle() == kRestore ? tr("Undo") : QString(),
                          [this] { tool_bar_->undoAction().trigger(); });
    }
    place();
}

bool Form1Window::restore(const RecoveryCopy& copy) {
    bool restored = false;
    SavedBook& saved = module_.saved;
    const std::pair before(saved.Compared(), saved.Marks());
    module_.history.Run(kRestore, [&] {
        form_.RestoreBook(copy);
        restored = true;
    });
    if (restored) {
        before_restore_ = before;
    }
    return restored;
}

// Whatever was open before, a book or nothing, is open again afterwards.
bool Form1Window::saveLeft(const RecoveryCopy& copy) {
    SavedBook& saved = module_.saved;
    const SavedBook::Hash compared = saved.Compared();
    const auto marks = saved.Marks();
    const bool was_empty = module_.WorkText.empty();
    const RecoveryCopy open = form_.CopyOfBook(form_.Caption, copy.Seconds);
    module_.history.Run(kSaveLeft, [&] {
        form_.RestoreBook(copy);
        form_.mnuSave_Click();
    });
    const bool is_saved = saved.Marks() != marks;
    if (!is_saved || !was_empty) {
        // With the same text there is no step, and the last one is another command's.
        if (module_.history.LastCanBeUndone()) {
            module_.history.Undo();
        } else {
            form_.RestoreBook(open);
        }
        saved.CompareWith(compared);
    }
    return is_saved;
}

void Form1Window::tellNotKept(const QString& why) {
    quiet_line_->tell(tr("What is not saved cannot be kept for the case of a crash: %1.").arg(why));
    // A person who types would not see it.
    line_stays_ = true;
    place();
}

}  // namespace orvik
