// What the program answers when the user's session ends.

#pragma once

namespace orvik {

// AnswerLogOut: asks whether the program may end, if the session lets it ask; if not, the log-out
// is cancelled. If it may not ask, it keeps the open book at once, for the next start. Manager is a
// QSessionManager.
template <class Manager, class MayEnd, class Keep>
void AnswerLogOut(Manager& manager, MayEnd may_end, Keep keep) {
    if (!manager.allowsInteraction()) {
        keep();
        return;
    }
    const bool ends = may_end();
    manager.release();
    if (!ends) {
        manager.cancel();
    }
}

}  // namespace orvik
