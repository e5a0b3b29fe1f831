// How a program of the command line ends, and what it says of a failure.

#pragma once

#include <string>

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

// WithDetail: what is told of a failure.
//   "Permission denied", "orvik was still saving" -> "Permission denied: orvik was still saving"
[[nodiscard]] std::string WithDetail(const std::string& text, const std::string& detail);

}  // namespace orvik::cli
