#include "desktop/views/find_in_text.h"

#include <QTextDocument>

namespace orvik {

TextPlace FindInText(const QTextCursor& from, const QString& wanted, FindBar::Step step) {
    const bool backward = step == FindBar::Step::Previous;
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QTextDocument& text = *from.document();
    const QTextCursor found = step == FindBar::Step::Typed
                                  ? text.find(wanted, from.selectionStart(), flags)
                                  : text.find(wanted, from, flags);
    if (!found.isNull()) {
        return {found, false};
    }
    QTextCursor edge(from);
    edge.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
    return {text.find(wanted, edge, flags), true};
}

}  // namespace orvik
