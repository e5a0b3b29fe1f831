// The commands that touch no file: they too must survive a lack of memory.

#pragma once

#include <vector>

#include "reliability/commands.h"

namespace orvik::test {

[[nodiscard]] const std::vector<FileCommand>& WindowCommands();

}  // namespace orvik::test
