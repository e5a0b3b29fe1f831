#include "app/run_time_error.h"

namespace orvik {

const char* RunTimeError::what() const noexcept {
    switch (failure_) {
        case Failure::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case Failure::Overflow:
            return "Overflow";
        case Failure::OutOfMemory:
            return "Out of memory";
        case Failure::TypeMismatch:
            return "Type mismatch";
        case Failure::BadFileNumber:
            return "Bad file name or number";
        case Failure::FileNotFound:
            return "File not found";
        case Failure::FileAlreadyOpen:
            return "File already open";
        case Failure::DeviceError:
            return "Device I/O error";
        case Failure::DiskFull:
            return "Disk full";
        case Failure::InputPastEnd:
            return "Input past end of file";
        case Failure::PermissionDenied:
            return "Permission denied";
        case Failure::PathFileAccess:
            return "Path/File access error";
        case Failure::PathNotFound:
            return "Path not found";
    }
    return "";
}

}  // namespace orvik
