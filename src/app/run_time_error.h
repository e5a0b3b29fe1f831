// Run-time failures: one exception type with the classic number and description.

#pragma once

#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace orvik {

enum class Failure {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    TypeMismatch = 13,
    BadFileNumber = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceError = 57,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

// A statement that failed. what() is the description, for example "File not found".
class RunTimeError : public std::exception {
 public:
    explicit RunTimeError(Failure failure) noexcept : failure_(failure) {}
    // detail is a sentence about this failure alone.
    RunTimeError(Failure failure, const std::string& detail)
        : failure_(failure), detail_(std::make_shared<const std::string>(detail)) {}

    [[nodiscard]] int Number() const noexcept { return static_cast<int>(failure_); }
    [[nodiscard]] Failure Cause() const noexcept { return failure_; }
    [[nodiscard]] const char* what() const noexcept override;
    // Empty where there is nothing to add.
    [[nodiscard]] std::string Detail() const { return detail_ ? *detail_ : std::string(); }

 private:
    Failure failure_;
    std::shared_ptr<const std::string> detail_;  // copying a failure must not throw
};

// TrapFailure: runs a statement; a failure of it, memory that does not suffice included, goes to
// report, and the caller goes on with its next statement. The end of the program is no failure and
// passes through.
//   TrapFailure([&] { file.OpenForInput(name); }, [&](const RunTimeError& e) { Tell(e); });
template <class Statement, class Report>
void TrapFailure(Statement&& statement, Report&& report) {
    try {
        statement();
    } catch (const RunTimeError& failure) {
        report(failure);
    } catch (const std::bad_alloc&) {
        report(RunTimeError(Failure::OutOfMemory));
    } catch (const std::length_error&) {
        report(RunTimeError(Failure::OutOfMemory));
    }
}

// PassLackOfMemory: for a report that takes any failure for one of the data: throws std::bad_alloc
// if it was a lack of memory, which is nobody's but the caller's.
inline void PassLackOfMemory(const RunTimeError& failure) {
    if (failure.Cause() == Failure::OutOfMemory) {
        throw std::bad_alloc();
    }
}

}  // namespace orvik
