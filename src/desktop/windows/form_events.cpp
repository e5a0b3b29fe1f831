#include "desktop/windows/form_events.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <algorithm>

namespace orvik {

bool FormEvents::run(const Event& event, AtYield at_yield) {
    return desktop_.run([&] { module_.RunEvent(event); }, at_yield);
}

void FormEvents::runHandler(std::string_view name, AtYield at_yield) {
    const std::vector<NamedHandler> handlers = form_.Handlers();
    const auto found = std::find_if(
        handlers.begin(), handlers.end(), [&](const NamedHandler& h) { return h.Name == name; });
    if (found != handlers.end()) {
        desktop_.run([&] { module_.RunCommand(form_, *found); }, at_yield);
    }
}

FormEvents::Event FormEvents::find(std::string_view name) const {
    const std::vector<NamedHandler> handlers = form_.Handlers();
    const auto found = std::find_if(
        handlers.begin(), handlers.end(), [&](const NamedHandler& h) { return h.Name == name; });
    return found == handlers.end() ? Event() : found->Run;
}

bool FormEvents::runNamed(std::string_view name) {
    const Event handler = find(name);
    if (handler) {
        run(handler);
    }
    return static_cast<bool>(handler);
}

void FormEvents::runChange(const Event& change, std::string_view handler) {
    run([&, behind = find(handler)] {
        change();
        if (behind) {
            behind();
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
