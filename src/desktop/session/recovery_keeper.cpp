#include "desktop/session/recovery_keeper.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "app/working_text.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

// While a copy cannot be written it is tried again, less often.
constexpr int kSeldom = 10;

}  // namespace

RecoveryKeeper::RecoveryKeeper(FileSystem& files, std::chrono::milliseconds interval)
    : store_(files), interval_(interval) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &RecoveryKeeper::look);
}

bool RecoveryKeeper::isKept(const Module1& module, const std::string& title) const {
    return seen_ && seen_->Text.Revision() == module.WorkText.Revision() &&
           seen_->Box.Revision() == module.form1.Text1.Text().Revision() &&
           seen_->Mode == module.TextMode && seen_->EditMode == module.EditMode &&
           seen_->Caption == title;
}

void RecoveryKeeper::see(Module1& module, const std::string& title) {
    const bool came_back = followUndo(module);
    if (module.WorkText.empty() || !module.saved.Differs()) {
        if (!writer_.SetsAside()) {
            timer_.stop();
        }
        if (seen_ || came_back || !adopted_.empty()) {
            forget();
        }
        return;
    }
    if (isKept(module, title)) {
        return;
    }
    dropSeen();
    seen_ = module.form1.CopyOfBook(title, std::time(nullptr));
    given_ = false;
    // What was restored stands on the disk under another's name only.
    const auto wait = adopted_.empty() ? interval_ : std::chrono::milliseconds::zero();
    if (!timer_.isActive() || timer_.remainingTimeAsDuration() > wait) {
        timer_.start(wait);
    }
}

void RecoveryKeeper::goesOnUnsaved(const Module1& module) {
    if (!seen_ || (seen_->Text == module.WorkText && seen_->Mode == module.TextMode)) {
        return;
    }
    // A saving that failed may have written the same book in another form.
    const std::uint64_t entries = module.Entries(seen_->Text, seen_->Mode).Hash;
    if (entries == SavedBook::kNoFile || entries != module.Entries().Hash) {
        setAside(module);
    }
}

void RecoveryKeeper::setAside(const Module1& module) {
    waitUntilLeft();
    aside_.push_back({.Number = ++last_number_,
                      .Revision = seen_->Text.Revision(),
                      .Next = module.WorkText.Revision(),
                      .Short = seen_->Text.size() <= kTextLimit ? seen_->Text : SharedText(),
                      .Mode = seen_->Mode});
    writer_.SetAside(
        last_number_, std::move(*seen_), std::exchange(adopted_, {}), std::exchange(earlier_, {}));
    seen_.reset();
    dropOldest();
    timer_.start(interval_);
}

// Each keeps a file open, and there are no more steps that could bring one back.
void RecoveryKeeper::dropOldest() {
    if (aside_.size() > UndoHistory::kMostSteps) {
        if (!aside_.front().IsBack) {
            writer_.LeaveAside(aside_.front().Number);
        }
        aside_.erase(aside_.begin());
    }
}

bool RecoveryKeeper::isText(const Aside& aside, const SharedText& text, std::string_view mode) {
    return aside.Mode == mode &&
           (aside.Revision == text.Revision() || (!aside.Short.empty() && aside.Short == text));
}

// A book that undoing brings back is the open one again, and to redo sets it aside again.
bool RecoveryKeeper::followUndo(const Module1& module) {
    const SharedText& text = module.WorkText;
    if (seen_ && seen_->Text.Revision() != text.Revision()) {
        const auto gone = std::find_if(aside_.begin(), aside_.end(), [&](const Aside& aside) {
            return aside.IsBack && aside.Next != 0 && aside.Next == text.Revision() &&
                   isText(aside, seen_->Text, seen_->Mode);
        });
        if (gone != aside_.end()) {
            aside_.erase(gone);
            setAside(module);
        }
    }
    bool came_back = false;
    for (Aside& aside : aside_) {
        if (!aside.IsBack && isText(aside, text, module.TextMode)) {
            aside.IsBack = came_back = true;
            dropSeen();
            waitUntilLeft();
            writer_.TakeBack(aside.Number);
        }
    }
    return came_back;
}

void RecoveryKeeper::keep() {
    if (seen_ && !given_ && hasLeft()) {
        given_ = true;
        writer_.Keep(*seen_, std::exchange(adopted_, {}), std::exchange(earlier_, {}));
    }
}

void RecoveryKeeper::forget() {
    dropSeen();
    if (!hasLeft()) {
        return;  // nothing else is on the disk yet
    }
    writer_.Forget(std::exchange(adopted_, {}), std::exchange(earlier_, {}));
}

void RecoveryKeeper::dropSeen() {
    if (seen_) {
        earlier_.push_back(std::move(*seen_));
        seen_.reset();
    }
}

// What the worker has done is looked at later: nothing of Qt is called from its thread.
void RecoveryKeeper::look() {
    const QString problem = ToLetters(writer_.IsBusy() ? std::string() : writer_.Problem());
    if (!problem.isEmpty()) {
        if (!std::exchange(told_, true)) {
            emit failed(problem);
        }
        given_ = false;
    }
    const bool sets_aside = writer_.SetsAside();
    const bool looks_again = !given_ || writer_.IsBusy();
    writer_.Retry();
    keep();
    if ((looks_again && seen_) || sets_aside) {
        timer_.start(problem.isEmpty() ? interval_ : interval_ * kSeldom);
    }
}

void RecoveryKeeper::keepNow() {
    timer_.stop();
    waitUntilLeft();
    writer_.Retry();
    keep();
    writer_.Finish();
}

void RecoveryKeeper::end(Module1& module) {
    const SavedBook& saved = module.saved;
    if (seen_ && (saved.GetFate() == SavedBook::Fate::GivenUp || !module.saved.Differs())) {
        forget();
    }
    keepNow();
}

void RecoveryKeeper::adopt(RecoveryStore::Left left) {
    adopted_.push_back(std::move(left));
}

void RecoveryKeeper::letGo() {
    timer_.stop();
    dropSeen();
    // As long as it is not adopted on the disk, what is kept there is another book.
    leaves_ = leaves_ || adopted_.empty();
    adopted_.clear();
    static_cast<void>(hasLeft());
}

// Nobody waits for the disk: while it is busy the next book waits instead.
bool RecoveryKeeper::hasLeft() {
    if (leaves_ && !writer_.IsBusy()) {
        writer_.DropReplaced();
        store_.LeaveCopy();
        leaves_ = false;
    }
    return !leaves_;
}

// What follows takes the folder of the open book, which must not be another one's any more.
void RecoveryKeeper::waitUntilLeft() {
    if (!hasLeft()) {
        writer_.Finish();
        static_cast<void>(hasLeft());
    }
}

void RecoveryKeeper::removeAll() {
    aside_.clear();
    writer_.ForgetAside();
    writer_.Finish();
    store_.RemoveLeft();
}

}  // namespace orvik
