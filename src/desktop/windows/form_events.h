// How the user's events reach the form that a window shows: the same for every window.

#pragma once

#include <functional>
#include <string_view>

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
    // Runs the form's handler of this name, such as "mnuOpen_Click", as a command of the user. One
    // that does not exist yet does nothing.
    void runHandler(std::string_view name, AtYield at_yield = AtYield::Refused);

    // Runs the form's handler of an event that is no command; returns false if there is none.
    bool runNamed(std::string_view name);
    // The user changes a control; then its handler, if there is one, runs, all as one event.
    void runChange(const Event& change, std::string_view handler);

    // The close box: the form says whether the window goes.
    void close(QCloseEvent& event);
    // Tells the form of a key that it knows. Returns false for any other.
    bool releaseKey(const QKeyEvent& event);

 private:
    [[nodiscard]] Event find(std::string_view name) const;

    Module1& module_;
    Form& form_;
    Desktop& desktop_;
};

}  // namespace orvik
