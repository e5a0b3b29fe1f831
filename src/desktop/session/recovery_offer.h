// Asks what to do with a book that an ended program has left.

#pragma once

#include <QString>
#include <cstdint>

#include "desktop/session/desktop.h"
#include "files/recovery_copy.h"

namespace orvik {

enum class LeftAnswer {
    NotNow,   // it stays, and it is asked again at the next start
    Restore,  // it becomes the open book
    SaveAs,   // it is saved
    Discard,  // it goes
};

// WhatWasLeft: says which book that is, when it was kept, in seconds since 1970, and how much it
// is.
//   "book.ldif", 0, "3 entries" -> "The program ended before book.ldif was saved. It was kept on
//   1/1/70 1:00 AM, with 3 entries."
[[nodiscard]] QString WhatWasLeft(const QString& book, std::int64_t seconds, const QString& amount);

[[nodiscard]] LeftAnswer AskAboutLeft(Desktop& desktop, const RecoveryCopy& copy);

}  // namespace orvik
