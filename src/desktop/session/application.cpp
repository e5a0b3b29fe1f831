#include "desktop/session/application.h"

#include <QScopedValueRollback>
#include <iostream>
#include <new>
#include <stdexcept>

namespace orvik {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        // Told below, when what the event held is free again.
    } catch (const std::length_error&) {
        // A text that no memory could hold.
    }
    tellOutOfMemory();
    return false;
}

void Application::tellOutOfMemory() {
    // One box is enough, also where each painting fails.
    if (tell_ && !telling_) {
        const QScopedValueRollback telling(telling_, true);
        try {
            if (tell_()) {
                return;
            }
        } catch (const std::bad_alloc&) {
            // Nor does it suffice for the box.
        } catch (const std::length_error&) {
            // The same.
        }
    }
    std::cerr << "orvik: Out of memory\n";
}

}  // namespace orvik
