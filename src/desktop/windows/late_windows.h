// The windows of all forms but the main one. Each is made when the desktop is asked for it, so that
// the program starts without them.

#pragma once

#include <QWidget>
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

 private:
    Desktop& desktop_;
    std::vector<const Form*> forms_;
    std::vector<std::unique_ptr<FormWindow>> made_;
};

}  // namespace orvik
