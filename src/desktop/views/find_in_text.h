// Finding letters in a shown text.

#pragma once

#include <QString>
#include <QTextCursor>

#include "desktop/views/find_bar.h"

namespace orvik {

struct TextPlace {
    // What was found as a selection; null where there is nothing.
    QTextCursor Cursor;
    bool Wrapped = false;
};

// FindInText: the next place of the wanted letters from a cursor on, around the end of the text.
[[nodiscard]] TextPlace FindInText(const QTextCursor& from,
                                   const QString& wanted,
                                   FindBar::Step step);

}  // namespace orvik
