#include "platform/system_files_open.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/passing_name.h"
#include "platform/system_files.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kPermissions = 07777;

// Copies an attribute; one that the old file does not have is no error.
std::error_code CopyAttribute(int from, int to, const char* name) {
    const ssize_t size = fgetxattr(from, name, nullptr, 0);
    if (size < 0) {
        return errno == ENODATA || errno == ENOTSUP ? std::error_code() : LastError();
    }
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = fgetxattr(from, name, value.data(), value.size());
    return got < 0 ? LastError()
                   : Result(fsetxattr(to, name, value.data(), static_cast<std::size_t>(got), 0));
}

// An access list that the folder gave a new file goes where the old file had none: the folder's
// list may let in others than the old file's permissions do.
std::error_code CopyAccessList(int from, int to) {
    constexpr const char* kName = "system.posix_acl_access";
    if (fgetxattr(from, kName, nullptr, 0) >= 0 || errno != ENODATA) {
        return CopyAttribute(from, to, kName);
    }
    return fremovexattr(to, kName) < 0 && errno != ENODATA ? LastError() : std::error_code();
}

// What cannot be kept of these is no reason not to save. Returns whether all could.
bool CopyUserAttributes(int from, int to) {
    const ssize_t size = flistxattr(from, nullptr, 0);
    if (size <= 0) {
        return size == 0 || errno == ENOTSUP;
    }
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = flistxattr(from, names.data(), names.size());
    bool all_kept = got >= 0;
    for (std::size_t i = 0; got > 0 && i < static_cast<std::size_t>(got);) {
        const std::string name(names.c_str() + i);
        if (name.starts_with("user.") && CopyAttribute(from, to, name.c_str())) {
            all_kept = false;
        }
        i += name.size() + 1;
    }
    return all_kept;
}

std::error_code CopyAttributes(int from, int to, bool& all_kept) {
    struct stat old {};
    struct stat now {};
    if (fstat(from, &old) < 0 || fstat(to, &now) < 0) {
        return LastError();
    }
    if ((old.st_uid != now.st_uid || old.st_gid != now.st_gid) &&
        fchown(to, old.st_uid, old.st_gid) < 0) {
        return LastError();
    }
    if (fchmod(to, old.st_mode & kPermissions) < 0) {
        return LastError();
    }
    all_kept = CopyUserAttributes(from, to);
    return CopyAccessList(from, to);
}

std::error_code CopyContents(int from, int to) {
    constexpr std::size_t kMost = 1 << 20;
    off_t done = 0;
    for (;;) {
        const ssize_t count = sendfile(to, from, &done, kMost);
        if (count == 0) {
            return {};
        }
        if (count < 0 && errno != EINTR) {
            return LastError();
        }
    }
}

// To get all pages of a large text at once costs less than to get each when it is written. A system
// that cannot gets them one by one.
void GetPages(char* memory, std::size_t size) {
    constexpr std::size_t kLarge = std::size_t{1} << 20U;
    static const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    if (size >= kLarge) {
        const std::size_t behind_page = page - reinterpret_cast<std::uintptr_t>(memory) % page;
        madvise(memory + behind_page, (size - behind_page) / page * page, MADV_POPULATE_WRITE);
    }
}

}  // namespace

std::error_code SystemInput::Status(FileStatus& status) {
    struct stat found {};
    const std::error_code error = Result(fstat(file_.Number(), &found));
    status = MakeStatus(found);
    return error;
}

std::error_code SystemInput::Read(std::size_t count, std::string& bytes) {
    std::error_code error;
    // Memory that is filled is not cleared first. The library may offer more of it than was asked
    // for.
    bytes.resize_and_overwrite(count, [&](char* to, std::size_t /*room*/) -> std::size_t {
        GetPages(to, count);
        const ssize_t got = read(file_.Number(), to, count);
        if (got < 0) {
            error = LastError();
            return 0;
        }
        return static_cast<std::size_t>(got);
    });
    return error;
}

std::error_code SystemInput::Rewind() {
    return lseek(file_.Number(), 0, SEEK_SET) < 0 ? LastError() : std::error_code();
}

void SystemOutput::Discard() {
    if (!name_.empty()) {
        unlink(std::exchange(name_, {}).c_str());
        hold_.reset();
    }
}

std::error_code SystemOutput::Write(std::string_view bytes, std::size_t& written) {
    // A system that gets more of a file at once looks for as large a piece of memory, which costs
    // more than to come again.
    constexpr std::size_t kAtOnce = std::size_t{256} << 10U;
    const ssize_t count = write(file_.Number(), bytes.data(), std::min(bytes.size(), kAtOnce));
    written = count < 0 ? 0 : static_cast<std::size_t>(count);
    return count < 0 ? LastError() : std::error_code();
}

std::error_code SystemOutput::SetLength(std::uint64_t length) {
    return Result(ftruncate(file_.Number(), static_cast<off_t>(length)));
}

std::error_code SystemOutput::TakeAttributesOf(InputFile& other, bool& all_kept) {
    return CopyAttributes(dynamic_cast<SystemInput&>(other).Number(), file_.Number(), all_kept);
}

std::error_code SystemOutput::Sync() {
    return syncs_ ? Result(fsync(file_.Number())) : std::error_code();
}

std::error_code SystemOutput::TakeName(const fs::path& name) {
    if (name_.empty()) {
        const std::error_code error = Result(
            linkat(AT_FDCWD, file_.Link().c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW));
        if (!error || error == std::errc::file_exists || error == std::errc::interrupted) {
            return error;
        }
        // Without /proc, or where a file system or a guard allows no such link.
        if (CopyInto(FolderOf(name))) {
            return error;
        }
    }
    return Move(name);
}

std::error_code SystemOutput::CopyInto(const fs::path& folder) {
    hold_ = SystemFiles().HoldEnd();
    name_ = folder / PassingName(kPassingNew);
    Descriptor copy(open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOnlyMine));
    if (!copy.IsOpen()) {
        const std::error_code error = LastError();
        name_.clear();
        hold_.reset();
        return error;
    }
    bool all_kept = false;
    std::error_code error = CopyContents(file_.Number(), copy.Number());
    if (!error) {
        error = CopyAttributes(file_.Number(), copy.Number(), all_kept);
    }
    std::swap(file_, copy);
    if (!error) {
        error = Sync();
    }
    if (error) {
        std::swap(file_, copy);
        Discard();
    }
    return error;
}

// Not by a link, which not every file system has: the name is taken by an empty file first, so that
// it is nobody else's.
std::error_code SystemOutput::Move(const fs::path& name) {
    const Descriptor taken(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOnlyMine));
    if (!taken.IsOpen()) {
        return LastError();
    }
    if (rename(name_.c_str(), name.c_str()) < 0) {
        const std::error_code error = LastError();
        unlink(name.c_str());
        return error;
    }
    name_.clear();
    hold_.reset();
    return {};
}

}  // namespace orvik
