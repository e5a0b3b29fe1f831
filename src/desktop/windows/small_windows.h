// The windows beside the main window.

#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "desktop/windows/form_window.h"
#include "program/program.h"

namespace orvik {

// MakeWindow: the window of any form but the main one. All must outlive it; owner is the main
// window.
[[nodiscard]] std::unique_ptr<FormWindow> MakeWindow(Module1& module,
                                                     const Form& form,
                                                     Desktop& desktop,
                                                     QWidget* owner);

// MakeSmallWindows: the windows of all forms but the main one.
[[nodiscard]] std::vector<std::unique_ptr<FormWindow>> MakeSmallWindows(Program& program,
                                                                        Desktop& desktop,
                                                                        QWidget* owner);

}  // namespace orvik
