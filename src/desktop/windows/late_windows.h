// The windows of all forms but the main one, without which the program starts: each is made when
// the desktop is asked for it, or when nobody does anything.

#pragma once

#include <QTimer>
#include <QWidget>
#include <cstddef>
#include <memory>
#include <vector>

#include "desktop/session/desktop.h"
#include "desktop/windows/form_window.h"
#include "program/program.h"

namespace orvik {

class LateWindows {
 public:
    // All must outlive the windows; owner is the main window.
    LateWindows(Program& program, Desktop& desktop, QWidget* owner);
    LateWindows(const LateWindows&) = delete;
    LateWindows& operator=(const LateWindows&) = delete;
    LateWindows(LateWindows&&) = delete;
    LateWindows& operator=(LateWindows&&) = delete;
    ~LateWindows();

    [[nodiscard]] const std::vector<std::unique_ptr<FormWindow>>& made() const { return made_; }
    void makeAll();
    // Makes one after the other, between the user's events: best while there is no book yet that a
    // lack of memory could cost.
    void makeInTurn();

 private:
    void makeNext();

    Desktop& desktop_;
    std::vector<const Form*> forms_;
    std::vector<std::unique_ptr<FormWindow>> made_;
    std::size_t next_ = 0;  // of the forms, the one whose turn it is
    QTimer turn_;
};

}  // namespace orvik
