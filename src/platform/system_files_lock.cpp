// The right to write into a folder or a file, which is a lock of itself.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

#include "platform/system_files.h"
#include "platform/system_files_descriptor.h"

namespace orvik {
namespace {

constexpr std::chrono::milliseconds kBetweenTries{20};

class SystemLock : public FolderLock {
 public:
    explicit SystemLock(Descriptor locked) : locked_(std::move(locked)) {}

 private:
    Descriptor locked_;
};

// The name that a process gave itself may be any bytes.
std::string NameOfProcess(long process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/comm");
    std::string name;
    std::getline(file, name);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return name;
}

// How /proc/locks names a file: "fd:00:1234".
std::string NameInLocks(const struct stat& file) {
    std::ostringstream name;
    name << std::hex << std::setfill('0') << std::setw(2) << major(file.st_dev) << ':'
         << std::setw(2) << minor(file.st_dev) << ':' << std::dec << file.st_ino;
    return name.str();
}

// The process that a line of /proc/locks names as the keeper of a file's lock, or 0. Lines of those
// that wait have "->" in front of the kind.
//   "7: FLOCK  ADVISORY  WRITE 4711 fd:00:1234 0 EOF"
long KeeperIn(const std::string& line, const std::string& file) {
    std::istringstream words(line);
    std::string number;
    std::string kind;
    std::string strictness;
    std::string way;
    long process = 0;
    std::string name;
    words >> number >> kind >> strictness >> way >> process >> name;
    return kind == "FLOCK" && name == file ? process : 0;
}

}  // namespace

std::error_code SystemFiles::Lock(const Path& path,
                                  std::chrono::milliseconds longest,
                                  std::unique_ptr<FolderLock>& lock) {
    Descriptor opened(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!opened.IsOpen()) {
        return errno == EACCES ? std::make_error_code(std::errc::not_supported) : LastError();
    }
    const auto start = std::chrono::steady_clock::now();
    while (flock(opened.Number(), LOCK_EX | LOCK_NB) < 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return std::make_error_code(std::errc::not_supported);
        }
        if (std::chrono::steady_clock::now() - start > longest) {
            return std::make_error_code(std::errc::device_or_resource_busy);
        }
        std::this_thread::sleep_for(kBetweenTries);
    }
    lock = std::make_unique<SystemLock>(std::move(opened));
    return {};
}

std::string SystemFiles::LockKeeper(const Path& path) {
    struct stat found {};
    if (stat(path.c_str(), &found) == 0) {
        const std::string name_in_locks = NameInLocks(found);
        std::ifstream locks("/proc/locks");
        for (std::string line; std::getline(locks, line);) {
            // One of another container has no number here.
            const long process = KeeperIn(line, name_in_locks);
            const std::string name = process > 0 ? NameOfProcess(process) : std::string();
            if (!name.empty()) {
                return name + " (process " + std::to_string(process) + ")";
            }
        }
    }
    return "another program";
}

}  // namespace orvik
