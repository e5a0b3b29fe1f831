#include "cli/exit_status.h"

namespace orvik::cli {

ExitStatus StatusOf(Failure failure, bool writing) {
    switch (failure) {
        case Failure::DeviceError:
        case Failure::DiskFull:
        case Failure::InputPastEnd:
            return ExitStatus::InputOutput;
        case Failure::BadFileNumber:
        case Failure::FileNotFound:
        case Failure::PermissionDenied:
        case Failure::PathFileAccess:
        case Failure::PathNotFound:
            return writing ? ExitStatus::CannotCreate : ExitStatus::NoInput;
        case Failure::OutOfMemory:
            return ExitStatus::OutOfMemory;
        default:
            return ExitStatus::Problem;
    }
}

std::string WithDetail(const std::string& text, const std::string& detail) {
    return detail.empty() ? text : text + ": " + detail;
}

}  // namespace orvik::cli
