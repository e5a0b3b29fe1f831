// Asks what to do with a book that an ended program has left.

#pragma once

#include "desktop/session/desktop.h"
#include "files/recovery_copy.h"

namespace orvik {

enum class LeftAnswer {
    NotNow,   // it stays, and it is asked again at the next start
    Restore,  // it becomes the open book
    SaveAs,   // it is saved
    Discard,  // it goes
};

[[nodiscard]] LeftAnswer AskAboutLeft(Desktop& desktop, const RecoveryCopy& copy);

}  // namespace orvik
