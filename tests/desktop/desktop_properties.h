// Reads what a person sees of a control.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/controls.h"

class QObject;

namespace orvik::testkit {

// A property of a control as its widget shows it, nothing where no widget shows it.
[[nodiscard]] std::optional<std::string> ShownProperty(QObject& view,
                                                       const ControlRef& control,
                                                       std::string_view property);

}  // namespace orvik::testkit
