// How the user's events reach the form that a window shows: the same for every window.

#pragma once

#include <functional>

#include "app/module1.h"
#include "desktop/session/desktop.h"

class QCloseEvent;
class QKeyEvent;

namespace orvik {

class FormEvents {
 public:
    // All must outlive the events.
    FormEvents(Module1& module, Form& form, Desktop& desktop)
        : module_(module), form_(form), desktop_(desktop) {}

    using Event = std::function<void()>;
    // Runs an event; a failure of it is reported. Returns false if the event is refused.
    bool run(const Event& event, AtYield at_yield = AtYield::Refused);
    // Runs a handler as a command of the user, one that can be undone.
    void runCommand(const NamedHandler& command, AtYield at_yield = AtYield::Refused);
    // The user changes a control; then what a click on it runs, if anything, all as one event.
    void runChange(const Event& change, const Event& click);

    // The close box: the form says whether the window goes.
    void close(QCloseEvent& event);
    // Tells the form of a key that it knows. Returns false for any other.
    bool releaseKey(const QKeyEvent& event);

 private:
    Module1& module_;
    Form& form_;
    Desktop& desktop_;
};

}  // namespace orvik
