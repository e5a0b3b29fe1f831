#include "app/book_file.h"

#include <array>
#include <memory>
#include <random>
#include <utility>

#include "app/run_time_error.h"
#include "app/scope.h"

namespace orvik {
namespace {

using Path = FileSystem::Path;

Failure FailureOf(std::error_code error) {
    struct Row {
        std::errc Error;
        Failure What;
    };
    constexpr std::array kRows = {
        Row{std::errc::no_such_file_or_directory, Failure::FileNotFound},
        Row{std::errc::not_a_directory, Failure::PathNotFound},
        Row{std::errc::permission_denied, Failure::PermissionDenied},
        Row{std::errc::operation_not_permitted, Failure::PermissionDenied},
        Row{std::errc::read_only_file_system, Failure::PermissionDenied},
        Row{std::errc::no_space_on_device, Failure::DiskFull},
        Row{std::errc::file_too_large, Failure::DiskFull},
        Row{std::errc::not_enough_memory, Failure::OutOfMemory},
    };
    for (const Row& row : kRows) {
        if (error == row.Error) {
            return row.What;
        }
    }
    return Failure::PathFileAccess;
}

std::unique_ptr<OutputFile> Open(FileSystem& files, const Path& path, Writing how) {
    std::unique_ptr<OutputFile> file;
    CheckFile(files, files.OpenToWrite(path, how, file), path);
    return file;
}

void WriteAndClose(FileSystem& files, OutputFile& file, std::string_view bytes, const Path& path) {
    CheckFile(files, file.Write(bytes), path);
    CheckFile(files, file.Close(), path);
}

// A new, empty file in the folder of a target, removed again unless it was renamed.
class FileBeside {
 public:
    FileBeside(FileSystem& files, const Path& target) : files_(files), target_(target) {
        std::random_device random;
        path_ = FolderOf(target) / (".orvik-" + std::to_string(random()) + ".tmp");
        file_ = Open(files, path_, Writing::New);
    }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    FileBeside(FileBeside&&) = delete;
    FileBeside& operator=(FileBeside&&) = delete;
    ~FileBeside() {
        if (!path_.empty()) {
            files_.Remove(path_);
        }
    }

    // Takes the place of the target with new contents. The permissions are those of the target from
    // before the first byte is written, as far as the file system knows such things.
    void Replace(const FileStatus& old, std::string_view contents) {
        if (old.Kind == FileKind::Regular) {
            files_.SetPermissions(path_, old.Permissions);
        }
        WriteAndClose(files_, *file_, contents, path_);
        CheckFile(files_, files_.Rename(path_, target_), target_);
        path_.clear();
    }

 private:
    FileSystem& files_;
    Path target_;
    Path path_;
    std::unique_ptr<OutputFile> file_;
};

// Whether a file is there to be added to. Errors: RunTimeError 75 if it is no ordinary file.
bool CanBeAddedTo(const FileStatus& status) {
    if (status.Kind != FileKind::Regular && status.Kind != FileKind::Missing) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return status.Kind == FileKind::Regular;
}

}  // namespace

void CheckFile(FileSystem& files, std::error_code error, const Path& path) {
    if (!error) {
        return;
    }
    if (error == std::errc::no_such_file_or_directory) {
        FileStatus folder;
        if (files.Status(FolderOf(path), folder) || folder.Kind != FileKind::Folder) {
            throw RunTimeError(Failure::PathNotFound);
        }
    }
    throw RunTimeError(FailureOf(error));
}

FileStatus StatusOf(FileSystem& files, const std::string& name) {
    if (name.empty()) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    // Behind a zero byte the system would not see the rest of the name.
    if (name.find('\0') != std::string::npos) {
        throw RunTimeError(Failure::BadFileNumber);
    }
    FileStatus status;
    CheckFile(files, files.Status(name, status), name);
    return status;
}

void ReplaceFile(FileSystem& files, const std::string& name, std::string_view contents) {
    const FileStatus old = StatusOf(files, name);
    const Path path = files.ResolveLinks(name);
    switch (old.Kind) {
        case FileKind::CharacterDevice:
            // A device such as a terminal takes the bytes as they come.
            WriteAndClose(files, *Open(files, path, Writing::Replacing), contents, path);
            return;
        case FileKind::Regular:
            // Renaming would go past the write protection of the file itself.
            WriteAndClose(files, *Open(files, path, Writing::Updating), "", path);
            break;
        case FileKind::Missing:
            break;
        default:
            throw RunTimeError(Failure::PathFileAccess);
    }
    FileBeside(files, path).Replace(old, contents);
}

void AppendToFile(FileSystem& files, const std::string& name, std::string_view contents) {
    const FileStatus old = StatusOf(files, name);
    const Path path = files.ResolveLinks(name);
    const bool is_there = CanBeAddedTo(old);
    OnFailure undo([&] {
        if (is_there) {
            files.SetLength(path, old.Length);
        } else {
            files.Remove(path);
        }
    });
    WriteAndClose(files, *Open(files, path, Writing::Appending), contents, path);
}

void TryAppending(FileSystem& files, const std::string& name) {
    if (CanBeAddedTo(StatusOf(files, name))) {
        AppendToFile(files, name, "");
    } else {
        // Under its own name another program may be making it just now.
        const FileBeside attempt(files, files.ResolveLinks(name));
    }
}

}  // namespace orvik
