#include "platform/system_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>
#include <utility>

namespace orvik {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kDefaultMode = 0666;
constexpr mode_t kOnlyMine = 0600;
constexpr mode_t kPrivateFolder = 0700;
constexpr mode_t kPermissions = 07777;
constexpr std::chrono::milliseconds kBetweenTries{20};

// What the system said. A quota that is used up is a disk that is full.
std::error_code Told(const std::error_code& error) {
    return error.value() == EDQUOT ? std::make_error_code(std::errc::no_space_on_device) : error;
}

std::error_code LastError() {
    return Told({errno, std::generic_category()});
}

std::error_code Result(int result) {
    return result < 0 ? LastError() : std::error_code();
}

// A file descriptor, closed when this goes.
class Descriptor {
 public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    // Closes it now; tells what the system says of it.
    std::error_code Close() { return Result(close(std::exchange(number_, -1))); }

 private:
    int number_;
};

FileKind KindOf(mode_t mode) {
    switch (mode & S_IFMT) {
        case S_IFREG:
            return FileKind::Regular;
        case S_IFDIR:
            return FileKind::Folder;
        case S_IFCHR:
            return FileKind::CharacterDevice;
        default:
            return FileKind::Other;
    }
}

FileStatus StatusOf(const struct stat& found) {
    return {KindOf(found.st_mode),
            {found.st_dev,
             found.st_ino,
             static_cast<std::uint64_t>(found.st_size),
             found.st_mtim.tv_sec,
             found.st_mtim.tv_nsec},
            found.st_nlink};
}

class SystemInput : public InputFile {
 public:
    explicit SystemInput(Descriptor file) : file_(std::move(file)) {}

    std::error_code Status(FileStatus& status) override {
        struct stat found {};
        const std::error_code error = Result(fstat(file_.Number(), &found));
        status = StatusOf(found);
        return error;
    }
    std::error_code Read(std::size_t count, std::string& bytes) override {
        bytes.resize(count);
        const ssize_t got = read(file_.Number(), bytes.data(), count);
        bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
        return got < 0 ? LastError() : std::error_code();
    }
    [[nodiscard]] int Number() const { return file_.Number(); }

 private:
    Descriptor file_;
};

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

// What cannot be kept of these is no reason not to save.
void CopyUserAttributes(int from, int to) {
    const ssize_t size = flistxattr(from, nullptr, 0);
    if (size <= 0) {
        return;
    }
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = flistxattr(from, names.data(), names.size());
    for (std::size_t i = 0; got > 0 && i < static_cast<std::size_t>(got);) {
        const std::string name(names.c_str() + i);
        if (name.starts_with("user.")) {
            CopyAttribute(from, to, name.c_str());
        }
        i += name.size() + 1;
    }
}

class SystemOutput : public OutputFile {
 public:
    // name is that of a file that was created with one because the file system knows no others; it
    // goes with this unless it takes another.
    SystemOutput(Descriptor file, bool syncs, fs::path name)
        : file_(std::move(file)), syncs_(syncs), name_(std::move(name)) {}
    SystemOutput(const SystemOutput&) = delete;
    SystemOutput& operator=(const SystemOutput&) = delete;
    SystemOutput(SystemOutput&&) = delete;
    SystemOutput& operator=(SystemOutput&&) = delete;
    ~SystemOutput() override {
        if (!name_.empty()) {
            unlink(name_.c_str());
        }
    }

    std::error_code Write(std::string_view bytes, std::size_t& written) override {
        const ssize_t count = write(file_.Number(), bytes.data(), bytes.size());
        written = count < 0 ? 0 : static_cast<std::size_t>(count);
        return count < 0 ? LastError() : std::error_code();
    }
    std::error_code SetLength(std::uint64_t length) override {
        return Result(ftruncate(file_.Number(), static_cast<off_t>(length)));
    }
    std::error_code TakeAttributesOf(InputFile& other) override {
        const int from = dynamic_cast<SystemInput&>(other).Number();
        const int to = file_.Number();
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
        CopyUserAttributes(from, to);
        return CopyAttribute(from, to, "system.posix_acl_access");
    }
    std::error_code Sync() override {
        return syncs_ ? Result(fsync(file_.Number())) : std::error_code();
    }
    std::error_code TakeName(const fs::path& name) override {
        if (!name_.empty()) {
            const std::error_code error = Result(link(name_.c_str(), name.c_str()));
            if (!error) {
                unlink(std::exchange(name_, {}).c_str());
            }
            return error;
        }
        const std::string unnamed = "/proc/self/fd/" + std::to_string(file_.Number());
        return Result(linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW));
    }
    std::error_code Close() override { return file_.Close(); }

 private:
    Descriptor file_;
    bool syncs_;
    fs::path name_;
};

std::error_code Wrap(Descriptor opened,
                     bool syncs,
                     std::unique_ptr<OutputFile>& file,
                     fs::path name = {}) {
    if (!opened.IsOpen()) {
        return LastError();
    }
    file = std::make_unique<SystemOutput>(std::move(opened), syncs, std::move(name));
    return {};
}

class SystemLock : public FolderLock {
 public:
    explicit SystemLock(Descriptor folder) : folder_(std::move(folder)) {}

 private:
    Descriptor folder_;
};

}  // namespace

std::error_code SystemFiles::Status(const Path& path, FileStatus& status) {
    struct stat found {};
    if (stat(path.c_str(), &found) < 0) {
        status = {};
        return errno == ENOENT || errno == ENOTDIR ? std::error_code() : LastError();
    }
    status = StatusOf(found);
    return {};
}

std::error_code SystemFiles::OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) {
    // A pipe or a socket that took the file's place must not hang the program.
    Descriptor opened(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!opened.IsOpen()) {
        return LastError();
    }
    file = std::make_unique<SystemInput>(std::move(opened));
    return {};
}

std::error_code SystemFiles::OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) {
    return Wrap(Descriptor(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK)), syncs_, file);
}

std::error_code SystemFiles::CreateUnseen(const Path& folder,
                                          bool only_mine,
                                          std::unique_ptr<OutputFile>& file) {
    const mode_t mode = only_mine ? kOnlyMine : kDefaultMode;
    Descriptor unnamed(open(folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, mode));
    if (unnamed.IsOpen() || (errno != EOPNOTSUPP && errno != EISDIR && errno != ENOENT)) {
        return Wrap(std::move(unnamed), syncs_, file);
    }
    std::random_device random;
    const Path name = folder / (".orvik-" + std::to_string(random()) + ".new");
    return Wrap(Descriptor(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode)),
                syncs_,
                file,
                name);
}

std::error_code SystemFiles::Rename(const Path& from, const Path& to) {
    return Result(rename(from.c_str(), to.c_str()));
}

std::error_code SystemFiles::Remove(const Path& path) {
    return Result(unlink(path.c_str()));
}

std::error_code SystemFiles::SyncFolder(const Path& folder) {
    if (!syncs_) {
        return {};
    }
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder that may be written to but not read cannot be waited for.
    if (!opened.IsOpen()) {
        return errno == EACCES ? std::error_code() : LastError();
    }
    return fsync(opened.Number()) < 0 && errno != EINVAL ? LastError() : std::error_code();
}

std::error_code SystemFiles::CreateFolders(const Path& folder) {
    if (mkdir(folder.c_str(), kPrivateFolder) == 0 || errno == EEXIST) {
        return {};
    }
    if (errno != ENOENT || !folder.has_relative_path()) {
        return LastError();
    }
    const std::error_code error = CreateFolders(FolderOf(folder));
    // Another program may have created it meanwhile.
    if (error || mkdir(folder.c_str(), kPrivateFolder) == 0 || errno == EEXIST) {
        return error;
    }
    return LastError();
}

std::error_code SystemFiles::Lock(const Path& folder,
                                  std::chrono::milliseconds longest,
                                  std::unique_ptr<FolderLock>& lock) {
    Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
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

bool SystemFiles::IsSame(const Path& one, const Path& other) {
    std::error_code error;
    return fs::equivalent(one, other, error) && !error;
}

FileSystem::Path SystemFiles::ResolveLinks(Path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int links = 0; fs::is_symlink(path, error) && links < kMostLinks; ++links) {
        const Path target = fs::read_symlink(path, error);
        if (error) {
            break;
        }
        path = FolderOf(path) / target;
    }
    return path;
}

void IgnoreFileSignals() {
    // Nothing can be done where this fails.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}

}  // namespace orvik
