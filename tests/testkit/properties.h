// Reads the state of the program for a transcript.

#pragma once

#include <string>
#include <string_view>

#include "app/controls.h"
#include "app/module1.h"

namespace orvik::testkit {

// A property of a control: Text, Caption, Visible, Enabled, Checked, Value, Items, Selected, Left,
// Top, Width, Height or Panels(1).Text, as far as the control has it. Errors: ScenarioError.
[[nodiscard]] std::string FormatProperty(const ControlRef& control, std::string_view property);

// A property of a form: Caption, Visible, Loaded, Width or Height. Errors: ScenarioError.
[[nodiscard]] std::string FormatProperty(const Form& form, std::string_view property);

// Shared state by name, such as WorkText. Errors: ScenarioError.
[[nodiscard]] std::string FormatState(Module1& module, std::string_view name);

}  // namespace orvik::testkit
