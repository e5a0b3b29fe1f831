#include "desktop/windows/form_events.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace orvik {

bool FormEvents::run(const Event& event, AtYield at_yield) {
    return desktop_.run([&] { module_.RunEvent(event); }, at_yield);
}

void FormEvents::runCommand(const NamedHandler& command, AtYield at_yield) {
    desktop_.run([&] { module_.RunCommand(command); }, at_yield);
}

void FormEvents::runChange(const Event& change, const Event& click) {
    run([&] {
        change();
        if (click) {
            click();
        }
    });
}

void FormEvents::close(QCloseEvent& event) {
    event.ignore();
    run([this] { form_.Unload(); }, AtYield::Taken);
}

bool FormEvents::releaseKey(const QKeyEvent& event) {
    if (event.key() != Qt::Key_F1 || event.isAutoRepeat()) {
        return false;
    }
    run([this] { form_.Form_KeyUp(kKeyF1); });
    return true;
}

}  // namespace orvik
