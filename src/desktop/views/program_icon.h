// The program's icon.

#pragma once

#include <QIcon>

namespace orvik {

// The installed icon, which a theme may replace; else the one inside the program.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace orvik
