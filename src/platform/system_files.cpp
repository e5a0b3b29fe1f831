#include "platform/system_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <utility>

#include "platform/passing_name.h"
#include "platform/system_files_descriptor.h"
#include "platform/system_files_open.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kDefaultMode = 0666;
constexpr mode_t kPrivateFolder = 0700;

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

bool IsSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// The name of an open file, empty where it has none that leads to it: it was removed, or what is
// mounted hides it.
fs::path NameOf(const Descriptor& file) {
    std::error_code error;
    const fs::path name = fs::read_symlink(file.Link(), error);
    struct stat opened {};
    struct stat named {};
    const bool leads = !error && name.is_absolute() && fstat(file.Number(), &opened) == 0 &&
                       stat(name.c_str(), &named) == 0 && IsSameFile(opened, named);
    return leads ? name : fs::path();
}

// Closes a folder that is being listed.
struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

FileStatus MakeStatus(const struct stat& found) {
    return {KindOf(found.st_mode),
            {found.st_dev,
             found.st_ino,
             static_cast<std::uint64_t>(found.st_size),
             found.st_mtim.tv_sec,
             found.st_mtim.tv_nsec},
            found.st_nlink};
}

std::error_code SystemFiles::Status(const Path& path, FileStatus& status) {
    struct stat found {};
    if (stat(path.c_str(), &found) < 0) {
        status = {};
        return errno == ENOENT || errno == ENOTDIR ? std::error_code() : LastError();
    }
    status = MakeStatus(found);
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
    Descriptor opened(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    if (!opened.IsOpen()) {
        return LastError();
    }
    file = std::make_unique<SystemOutput>(std::move(opened), syncs_);
    return {};
}

std::error_code SystemFiles::CreateUnseen(const Path& folder,
                                          bool only_mine,
                                          std::unique_ptr<OutputFile>& file) {
    const mode_t mode = only_mine ? kOnlyMine : kDefaultMode;
    if (unnamed_) {
        // It can be read, should its contents have to be copied.
        Descriptor unnamed(open(folder.c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, mode));
        if (unnamed.IsOpen()) {
            file = std::make_unique<SystemOutput>(std::move(unnamed), syncs_);
            return {};
        }
        if (errno != EOPNOTSUPP && errno != EISDIR && errno != ENOENT && errno != EINVAL &&
            errno != ENOSYS) {
            return LastError();
        }
    }
    auto hold = HoldEnd();
    Path name = folder / PassingName(kPassingNew);
    Descriptor named(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!named.IsOpen()) {
        return LastError();
    }
    file =
        std::make_unique<SystemOutput>(std::move(named), syncs_, std::move(name), std::move(hold));
    return {};
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
    Path part;
    for (const Path& name : folder) {
        part /= name;
        if (mkdir(part.c_str(), kPrivateFolder) < 0 && errno != EEXIST) {
            return LastError();
        }
    }
    return {};
}

std::error_code SystemFiles::RemoveFolder(const Path& folder) {
    return Result(rmdir(folder.c_str()));
}

bool SystemFiles::IsSame(const Path& one, const Path& other) {
    std::error_code error;
    return fs::equivalent(one, other, error) && !error;
}

FileSystem::Path SystemFiles::ResolveLinks(Path path) {
    // The system follows the links, also those that only it can, such as /dev/stdout.
    const Descriptor opened(open(path.c_str(), O_PATH | O_CLOEXEC));
    if (opened.IsOpen()) {
        Path name = NameOf(opened);
        return name.empty() ? path : name;
    }
    // Of a file that is not there yet it tells no name.
    constexpr int kMostLinks = 40;
    Path target = path;
    std::error_code error;
    for (int links = 0; fs::is_symlink(target, error) && links < kMostLinks; ++links) {
        const Path next = fs::read_symlink(target, error);
        if (error) {
            break;
        }
        target = FolderOf(target) / next;
    }
    return fs::is_symlink(target, error) ? path : target;
}

std::error_code SystemFiles::List(const Path& folder,
                                  std::string_view beginning,
                                  std::vector<FolderEntry>& entries) {
    entries.clear();
    const std::unique_ptr<DIR, CloseFolder> opened(opendir(folder.c_str()));
    if (!opened) {
        return LastError();
    }
    errno = 0;
    while (const dirent* const entry = readdir(opened.get())) {
        struct stat found {};
        const std::string_view name = entry->d_name;
        if (name.starts_with(beginning) &&
            fstatat(dirfd(opened.get()), entry->d_name, &found, AT_SYMLINK_NOFOLLOW) == 0) {
            entries.push_back({std::string(name), MakeStatus(found), found.st_uid == geteuid()});
        }
        errno = 0;
    }
    return errno == 0 ? std::error_code() : LastError();
}

FileSystem::Path SystemFiles::StateFolder() {
    const char* const state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr && Path(state).is_absolute()) {
        return state;
    }
    const char* const home = std::getenv("HOME");
    return home != nullptr && Path(home).is_absolute() ? Path(home) / ".local/state" : Path();
}

}  // namespace orvik
