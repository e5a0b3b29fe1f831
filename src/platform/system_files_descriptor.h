// A file as the system knows it, and what the system said.

#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "platform/file_system.h"

namespace orvik {

// The permissions of a file that is for nobody but the user.
inline constexpr mode_t kOnlyMine = 0600;

// A quota that is used up is a disk that is full.
[[nodiscard]] inline std::error_code LastError() {
    const std::error_code error(errno, std::generic_category());
    return errno == EDQUOT ? std::make_error_code(std::errc::no_space_on_device) : error;
}

[[nodiscard]] inline std::error_code Result(int result) {
    return result < 0 ? LastError() : std::error_code();
}

// A file descriptor, closed when this goes.
class Descriptor {
 public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    // The name under which the system knows the open file.
    [[nodiscard]] std::string Link() const { return "/proc/self/fd/" + std::to_string(number_); }
    // Closes it now; tells what the system says of it.
    std::error_code Close() { return Result(close(std::exchange(number_, -1))); }

 private:
    int number_;
};

[[nodiscard]] FileStatus MakeStatus(const struct stat& found);

}  // namespace orvik
