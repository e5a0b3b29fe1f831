// Which calls may fail without the command failing, and why.

#pragma once

#include <optional>
#include <string_view>

#include "reliability/trials.h"

namespace orvik::test {

struct Tolerance {
    std::optional<FileState> State;  // none for any
    std::string_view Call;           // as the twin of the files names it
    int Error;                       // 0 for any
    std::string_view Why;
    bool LeavesFile = false;  // what could not be removed stays
    int Failure = 0;          // the command may also fail, with this
};

// Null where the command has to fail with what the error means.
[[nodiscard]] const Tolerance* FindTolerance(FileState state, std::string_view call, int error);

}  // namespace orvik::test
