// The windows beside the main window, as they are laid out.

#pragma once

#include <QWidget>
#include <memory>

#include "desktop/windows/form_window.h"

namespace orvik {

// MakeWindow: the window of any form but the main one. All must outlive it; owner is the main
// window.
[[nodiscard]] std::unique_ptr<FormWindow> MakeWindow(Module1& module,
                                                     const Form& form,
                                                     Desktop& desktop,
                                                     QWidget* owner);

}  // namespace orvik
