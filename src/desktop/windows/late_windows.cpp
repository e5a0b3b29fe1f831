#include "desktop/windows/late_windows.h"

#include <algorithm>
#include <chrono>
#include <iterator>

#include "desktop/windows/small_windows.h"

namespace orvik {
namespace {

constexpr std::chrono::milliseconds kUntilNextTry{500};

}  // namespace

LateWindows::LateWindows(Program& program, Desktop& desktop, QWidget* owner) : desktop_(desktop) {
    const std::vector<Form*> all = program.Forms();
    std::copy_if(all.begin(), all.end(), std::back_inserter(forms_), [&](const Form* form) {
        return form != &program.form1;
    });
    desktop_.makeWhenAskedFor(forms_, [this, &program, owner](const Form& form) {
        made_.push_back(MakeWindow(program.module, form, desktop_, owner));
    });
    turn_.setSingleShot(true);
    QObject::connect(&turn_, &QTimer::timeout, &turn_, [this] { makeNext(); });
}

LateWindows::~LateWindows() {
    desktop_.makeWhenAskedFor({}, {});
}

void LateWindows::makeAll() {
    for (const Form* const form : forms_) {
        static_cast<void>(desktop_.viewOf(*form));
    }
}

void LateWindows::makeInTurn() {
    turn_.start(0);
}

void LateWindows::makeNext() {
    if (next_ == forms_.size()) {
        return;
    }
    if (desktop_.isRunning()) {
        // A command asks something, or shows how far it is.
        turn_.start(kUntilNextTry);
        return;
    }
    // If this fails there is no next one.
    static_cast<void>(desktop_.viewOf(*forms_[next_]));
    ++next_;
    turn_.start(0);
}

}  // namespace orvik
