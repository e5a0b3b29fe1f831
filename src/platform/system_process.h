// The process that the program runs in.

#pragma once

#include <cstddef>
#include <string>
#include <system_error>

namespace orvik {

// The exit status of a program that lacked memory.
inline constexpr int kOutOfMemoryStatus = 71;

// ErrorsGoToTerminal: whether somebody watches standard error.
[[nodiscard]] bool ErrorsGoToTerminal();
// The same for the other standard streams.
[[nodiscard]] bool OutputGoesToTerminal();
[[nodiscard]] bool InputComesFromTerminal();

// ReadStandardInput: appends standard input to its end; of more than most bytes it reads a little
// more than that.
[[nodiscard]] std::error_code ReadStandardInput(std::size_t most, std::string& bytes);

// ProgramFolder: the folder of the running program, without a separator behind it; empty where the
// system does not tell.
[[nodiscard]] std::string ProgramFolder();

// ReserveStandardStreams: a standard stream that is closed stays so, but no file that is opened
// gets its number, and with it what is meant for the stream.
void ReserveStandardStreams();

// EndOutOfMemory: tells that memory does not suffice, and ends the program. Needs none itself.
[[noreturn]] void EndOutOfMemory(const char* program) noexcept;

// EndWhereMemoryLacks: from now on a lack of memory that nobody handles, before main too, ends the
// program so. program is a literal.
void EndWhereMemoryLacks(const char* program) noexcept;

}  // namespace orvik
