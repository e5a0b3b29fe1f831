#include "desktop/session/recovery_keeper.h"

#include <ctime>
#include <utility>

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
    if (module.WorkText.empty() || !module.saved.Differs()) {
        timer_.stop();
        if (seen_ || !adopted_.empty()) {
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
    const bool looks_again = !given_ || writer_.IsBusy();
    keep();
    if (looks_again && seen_) {
        timer_.start(problem.isEmpty() ? interval_ : interval_ * kSeldom);
    }
}

void RecoveryKeeper::keepNow() {
    timer_.stop();
    if (leaves_) {
        writer_.Finish();
    }
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

void RecoveryKeeper::removeAll() {
    timer_.stop();
    writer_.Finish();
    forget();
    writer_.Finish();
    store_.RemoveLeft();
}

}  // namespace orvik
