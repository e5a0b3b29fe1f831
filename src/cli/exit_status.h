// How a program of the command line ends.

#pragma once

#include "app/run_time_error.h"
#include "platform/system_process.h"

namespace orvik::cli {

// The exit status; from 65 on those of sysexits.
enum class ExitStatus {
    Done = 0,
    // A message reported a problem.
    Problem = 1,
    Usage = 2,
    NoBook = 65,
    NoInput = 66,
    OutOfMemory = kOutOfMemoryStatus,
    CannotCreate = 73,
    InputOutput = 74,
};

// The status of a program that failed while it was writing a file, or reading one.
[[nodiscard]] ExitStatus StatusOf(Failure failure, bool writing);

}  // namespace orvik::cli
