#include "platform/system_process.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace orvik {
namespace {

// Whom the handler below names: it can be given nothing.
const char*& NameOfProgram() {
    static const char* name = "";
    return name;
}

// Whether the program was started without standard input.
bool& InputWasClosed() {
    static bool closed = false;
    return closed;
}

void Print(std::string_view text) noexcept {
    if (write(STDERR_FILENO, text.data(), text.size()) < 0) {
        return;  // Nothing can be done about it.
    }
}

[[noreturn]] void Terminate() noexcept {
    if (std::current_exception()) {
        try {
            throw;
        } catch (const std::bad_alloc&) {
            EndOutOfMemory(NameOfProgram());
        } catch (const std::length_error&) {
            EndOutOfMemory(NameOfProgram());
        } catch (...) {
            // A mistake of the program.
            std::abort();
        }
    }
    std::abort();
}

}  // namespace

bool ErrorsGoToTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

bool OutputGoesToTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

bool InputComesFromTerminal() {
    return isatty(STDIN_FILENO) == 1;
}

std::error_code ReadStandardInput(std::size_t most, std::string& bytes) {
    constexpr std::size_t kAtOnce = 1 << 16;
    std::array<char, kAtOnce> part{};
    if (InputWasClosed()) {
        return std::make_error_code(std::errc::bad_file_descriptor);
    }
    while (bytes.size() <= most) {
        const ssize_t got = read(STDIN_FILENO, part.data(), part.size());
        if (got == 0) {
            return {};
        }
        if (got > 0) {
            bytes.append(part.data(), static_cast<std::size_t>(got));
        } else if (errno != EINTR) {
            return {errno, std::system_category()};
        }
    }
    return {};
}

std::string ProgramFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

void ReserveStandardStreams() {
    // The next number is the lowest that is free; it can be read from, so that writing fails.
    int number = STDIN_FILENO;
    while (number >= 0 && number <= STDERR_FILENO) {
        number = open("/dev/null", O_RDONLY);
        InputWasClosed() = InputWasClosed() || number == STDIN_FILENO;
    }
    if (number > STDERR_FILENO) {
        close(number);
    }
}

void EndOutOfMemory(const char* program) noexcept {
    Print(program);
    Print(": Out of memory\n");
    _exit(kOutOfMemoryStatus);
}

void EndWhereMemoryLacks(const char* program) noexcept {
    NameOfProgram() = program;
    std::set_terminate(&Terminate);
}

}  // namespace orvik
