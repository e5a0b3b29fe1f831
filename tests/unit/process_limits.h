// What a process may do, taken away and given back.

#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

namespace orvik::test {

// While it lives no file can grow beyond so many bytes: a disk that is full.
class FileSizeLimit {
 public:
    explicit FileSizeLimit(rlim_t bytes) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_limit_);
        const rlimit limit = {bytes, old_limit_.rlim_max};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            throw std::runtime_error("no file size limit");
        }
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    FileSizeLimit(FileSizeLimit&&) = delete;
    FileSizeLimit& operator=(FileSizeLimit&&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &old_limit_);
        std::signal(SIGXFSZ, old_handler_);
    }

 private:
    void (*old_handler_)(int);
    rlimit old_limit_{};
};

// While it lives no more than so many files can be open.
class OpenFilesLimit {
 public:
    explicit OpenFilesLimit(rlim_t files) {
        getrlimit(RLIMIT_NOFILE, &old_limit_);
        const rlimit limit = {files, old_limit_.rlim_max};
        if (setrlimit(RLIMIT_NOFILE, &limit) != 0) {
            throw std::runtime_error("no limit of open files");
        }
    }
    OpenFilesLimit(const OpenFilesLimit&) = delete;
    OpenFilesLimit& operator=(const OpenFilesLimit&) = delete;
    OpenFilesLimit(OpenFilesLimit&&) = delete;
    OpenFilesLimit& operator=(OpenFilesLimit&&) = delete;
    ~OpenFilesLimit() { setrlimit(RLIMIT_NOFILE, &old_limit_); }

 private:
    rlimit old_limit_{};
};

// While it lives a variable of the environment has another value.
class Environment {
 public:
    Environment(const char* name, const std::string& value) : name_(name) {
        if (const char* const old = std::getenv(name); old != nullptr) {
            old_ = old;
        }
        setenv(name, value.c_str(), 1);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    Environment(Environment&&) = delete;
    Environment& operator=(Environment&&) = delete;
    ~Environment() {
        if (old_) {
            setenv(name_, old_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }

 private:
    const char* name_;
    std::optional<std::string> old_;
};

// While it lives permissions count, also for a test that the superuser runs.
class OrdinaryUser {
 public:
    // Both who the process is and who it acts as, since either is asked.
    OrdinaryUser() : old_(geteuid()) {
        ordinary_ = old_ != 0 || setresuid(kNobody, kNobody, old_) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    OrdinaryUser(OrdinaryUser&&) = delete;
    OrdinaryUser& operator=(OrdinaryUser&&) = delete;
    ~OrdinaryUser() {
        if (geteuid() != old_ && setresuid(old_, old_, old_) != 0) {
            std::abort();
        }
    }

    // False where the superuser is not allowed to be anybody else.
    [[nodiscard]] bool Ordinary() const { return ordinary_; }

 private:
    static constexpr uid_t kNobody = 65534;

    uid_t old_;
    bool ordinary_ = false;
};

}  // namespace orvik::test
