#include "app/file_slot.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include "app/run_time_error.h"
#include "platform/links.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

Failure FailureOf(int error) {
    switch (error) {
        case ENOENT:
            return Failure::FileNotFound;
        case ENOTDIR:
            return Failure::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
            return Failure::PermissionDenied;
        case ENOSPC:
        case EFBIG:
#ifdef EDQUOT
        case EDQUOT:
#endif
            return Failure::DiskFull;
        case ENOMEM:
            return Failure::OutOfMemory;
        default:
            return Failure::PathFileAccess;
    }
}

// A missing file in a missing folder is a missing path.
[[noreturn]] void Throw(int error, const fs::path& path) {
    std::error_code ignored;
    if (error == ENOENT && !fs::is_directory(FolderOf(path), ignored)) {
        throw RunTimeError(Failure::PathNotFound);
    }
    throw RunTimeError(FailureOf(error));
}

void CheckName(const std::string& name) {
    if (name.empty()) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    // Behind a zero byte the system would not see the rest of the name.
    if (name.find('\0') != std::string::npos) {
        throw RunTimeError(Failure::BadFileNumber);
    }
}

// The status of the file itself, links followed. A pipe or a socket could hang the program.
fs::file_type TypeOf(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::none) {
        Throw(error.value(), path);
    }
    return status.type();
}

// Writes all of contents to an open file and closes it, so that a full disk is noticed.
void WriteAndClose(OpenFile file, std::string_view contents, const fs::path& path) {
    const bool written =
        std::fwrite(contents.data(), 1, contents.size(), file.get()) == contents.size() &&
        std::fflush(file.get()) == 0;
    const int error = errno;
    const bool closed = std::fclose(file.release()) == 0;
    if (!written || !closed) {
        Throw(written ? errno : error, path);
    }
}

OpenFile OpenOrThrow(const fs::path& path, const char* how) {
    OpenFile file(std::fopen(path.c_str(), how));
    if (!file) {
        Throw(errno, path);
    }
    return file;
}

// A new, empty file in the folder of a target, removed again unless it was renamed.
class FileBeside {
 public:
    explicit FileBeside(const fs::path& target) : target_(target) {
        std::random_device random;
        path_ = FolderOf(target) / (".orvik-" + std::to_string(random()) + ".tmp");
        file_ = OpenOrThrow(path_, "wbx");
    }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    FileBeside(FileBeside&&) = delete;
    FileBeside& operator=(FileBeside&&) = delete;
    ~FileBeside() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }

    // Takes the place of the target with new contents. The permissions are those of the target from
    // before the first byte is written, as far as the file system knows such things.
    void Replace(std::string_view contents) {
        std::error_code error;
        const fs::file_status old = fs::status(target_, error);
        if (old.type() == fs::file_type::regular) {
            fs::permissions(path_, old.permissions(), error);
        }
        WriteAndClose(std::move(file_), contents, path_);
        fs::rename(path_, target_, error);
        if (error) {
            Throw(error.value(), target_);
        }
    }

 private:
    fs::path target_;
    fs::path path_;
    OpenFile file_;
};

}  // namespace

void FileCloser::operator()(std::FILE* file) const noexcept {
    std::fclose(file);  // NOLINT: the owner closes here; written files check the result themselves
}

void FileSlot::OpenForInput(const std::string& name) {
    Close();
    CheckName(name);
    const fs::path path(name);
    const fs::file_type type = TypeOf(path);
    if (type == fs::file_type::not_found) {
        Throw(ENOENT, path);
    }
    if (type != fs::file_type::regular) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    std::error_code error;
    const std::uintmax_t length = fs::file_size(path, error);
    if (error) {
        Throw(error.value(), path);
    }
    file_.reset(std::fopen(name.c_str(), "rb"));
    if (!file_) {
        Throw(errno, path);
    }
    length_ = static_cast<std::size_t>(length);
}

std::size_t FileSlot::Length() const {
    if (!file_) {
        throw RunTimeError(Failure::BadFileNumber);
    }
    return length_;
}

std::string FileSlot::Read(std::size_t count) {
    if (!file_) {
        throw RunTimeError(Failure::BadFileNumber);
    }
    std::string bytes(count, '\0');
    const std::size_t got = std::fread(bytes.data(), 1, count, file_.get());
    if (got < count) {
        throw RunTimeError(std::ferror(file_.get()) != 0 ? FailureOf(errno)
                                                         : Failure::InputPastEnd);
    }
    return bytes;
}

void FileSlot::Close() {
    file_.reset();
}

std::string FileSlot::ReadIfThere(const std::string& name) {
    CheckName(name);
    if (TypeOf(name) == fs::file_type::not_found) {
        return {};
    }
    OpenForInput(name);
    std::string contents = Read(Length());
    Close();
    return contents;
}

void FileSlot::Append(const std::string& name, std::string_view contents) {
    Close();
    CheckName(name);
    const fs::path path = ResolveLinks(name);
    const fs::file_type type = TypeOf(path);
    if (type != fs::file_type::regular && type != fs::file_type::not_found) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    std::error_code error;
    const std::uintmax_t old_length =
        type == fs::file_type::regular ? fs::file_size(path, error) : 0;
    Guard([&] { WriteAndClose(OpenOrThrow(path, "ab"), contents, path); },
          [&](const RunTimeError& failure) {
              if (type == fs::file_type::regular) {
                  fs::resize_file(path, old_length, error);
              } else {
                  fs::remove(path, error);
              }
              throw failure;
          });
}

void FileSlot::TryAppending(const std::string& name) {
    CheckName(name);
    const fs::path path = ResolveLinks(name);
    if (TypeOf(path) == fs::file_type::not_found) {
        // Under its own name another program may be making it just now.
        Close();
        const FileBeside attempt(path);
    } else {
        Append(name, "");
    }
}

void FileSlot::Replace(const std::string& name, std::string_view contents) {
    Close();
    CheckName(name);
    const fs::path path = ResolveLinks(name);
    switch (TypeOf(path)) {
        case fs::file_type::character:
            // A device such as a terminal takes the bytes as they come.
            WriteAndClose(OpenOrThrow(path, "wb"), contents, path);
            return;
        case fs::file_type::regular:
            // Renaming would go past the write protection of the file itself.
            WriteAndClose(OpenOrThrow(path, "r+b"), "", path);
            break;
        case fs::file_type::not_found:
            break;
        default:
            throw RunTimeError(Failure::PathFileAccess);
    }
    FileBeside(path).Replace(contents);
}

}  // namespace orvik
