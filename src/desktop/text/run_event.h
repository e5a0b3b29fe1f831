// How the parts of a window hand the user's events on.

#pragma once

#include <functional>

namespace orvik {

// Runs an event of the user and makes the windows equal to their forms; false if it is refused.
using RunEvent = std::function<bool(const std::function<void()>& event)>;

}  // namespace orvik
