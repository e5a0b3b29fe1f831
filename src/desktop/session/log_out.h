// What the program answers when the user's session ends.

#pragma once

namespace orvik {

// AnswerLogOut: asks whether the program may end, if the session lets it ask; if not, the log-out
// is cancelled. Manager is a QSessionManager.
template <class Manager, class MayEnd>
void AnswerLogOut(Manager& manager, MayEnd may_end) {
    if (!manager.allowsInteraction()) {
        return;
    }
    const bool ends = may_end();
    manager.release();
    if (!ends) {
        manager.cancel();
    }
}

}  // namespace orvik
