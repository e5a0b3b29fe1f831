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
        Row{std::errc::device_or_resource_busy, Failure::PermissionDenied},
        Row{std::errc::io_error, Failure::DeviceError},
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

// A close that a signal interrupts has closed the file, and what it held is on the disk already.
std::error_code CloseSynced(OutputFile& file) {
    const std::error_code error = file.Close();
    return error == std::errc::interrupted ? std::error_code() : error;
}

void WriteBytes(FileSystem& files, OutputFile& file, std::string_view bytes, const Path& path) {
    while (!bytes.empty()) {
        std::size_t written = 0;
        CheckFile(files, Persist([&] { return file.Write(bytes, written); }), path);
        bytes.remove_prefix(written);
    }
}

// Writes, and waits until it is on the disk.
void WriteAll(FileSystem& files, OutputFile& file, std::string_view bytes, const Path& path) {
    WriteBytes(files, file, bytes, path);
    CheckFile(files, Persist([&] { return file.Sync(); }), path);
}

// Gives a file the first of NAME, NAME1, NAME2 ... that is free.
std::error_code TakeFreeName(OutputFile& file, const std::string& name, Path& taken) {
    std::error_code error = std::make_error_code(std::errc::file_exists);
    for (int i = 0; error == std::errc::file_exists; ++i) {
        taken = name + (i == 0 ? "" : std::to_string(i));
        error = Persist([&] { return file.TakeName(taken); });
    }
    return error;
}

// One saving of one file.
class BookWriter {
 public:
    BookWriter(FileSystem& files, const std::string& name, const SaveManner& manner)
        : files_(files),
          path_(files.ResolveLinks(name)),
          folder_(FolderOf(path_)),
          manner_(manner) {}

    // Waits until no other program saves into the folder.
    void Lock() {
        const std::error_code error =
            Persist([&] { return files_.Lock(folder_, manner_.LongestWait, lock_); });
        if (error != std::errc::not_supported) {
            Check(error);
        }
    }

    // What the file holds; nothing where there is none.
    std::optional<std::string> Read(bool exists, bool wanted) {
        const std::error_code error = Persist([&] { return files_.OpenToRead(path_, old_); });
        if (error == std::errc::no_such_file_or_directory) {
            return std::nullopt;
        }
        // A book that may be written but not read can still be replaced, in place.
        if (error == std::errc::permission_denied && exists && !wanted) {
            unreadable_ = true;
            return std::nullopt;
        }
        Check(error);
        Check(Persist([&] { return old_->Status(before_); }));
        std::string contents;
        if (wanted) {
            Check(ReadBytes(*old_, static_cast<std::size_t>(before_.Length()), contents));
        }
        return contents;
    }

    void WriteToDevice(std::string_view contents) const {
        std::unique_ptr<OutputFile> device;
        Check(Persist([&] { return files_.OpenToWrite(path_, device); }));
        WriteBytes(files_, *device, contents, path_);
        Check(device->Close());
    }

    void Write(std::string_view contents) {
        if (unreadable_ || before_.Names > 1) {
            WriteInPlace(contents);
            return;
        }
        if (old_) {
            // Renaming would go past the write protection of the file itself.
            std::unique_ptr<OutputFile> writable;
            Check(Persist([&] { return files_.OpenToWrite(path_, writable); }));
        }
        std::unique_ptr<OutputFile> file;
        const bool only_mine = old_ != nullptr || manner_.OnlyMine;
        const std::error_code error =
            Persist([&] { return files_.CreateUnseen(folder_, only_mine, file); });
        if (old_ && TakesNoNewFile(error)) {
            WriteInPlace(contents);
            return;
        }
        Check(error);
        if (old_ && Persist([&] { return file->TakeAttributesOf(*old_); })) {
            WriteInPlace(contents);
            return;
        }
        WriteAll(files_, *file, contents, path_);
        CheckUnchanged();
        TakePlace(std::move(file));
    }

 private:
    static bool TakesNoNewFile(std::error_code error) {
        return error == std::errc::permission_denied || error == std::errc::operation_not_permitted;
    }

    void Check(std::error_code error) const { CheckFile(files_, error, path_); }

    // Where there are no locks another program may have saved meanwhile: it would be lost.
    void CheckUnchanged() const {
        FileStatus now;
        Check(Persist([&] { return files_.Status(path_, now); }));
        if (!lock_ && now.Identity != before_.Identity) {
            throw RunTimeError(Failure::PermissionDenied);
        }
    }

    void TakePlace(std::unique_ptr<OutputFile> file) {
        std::random_device random;
        const Path name = folder_ / (".orvik-" + std::to_string(random()) + ".tmp");
        Check(Persist([&] { return file->TakeName(name); }));
        bool renamed = false;
        const OnExit clean([&] {
            if (!renamed) {
                files_.Remove(name);
            }
        });
        Check(CloseSynced(*file));
        Check(Persist([&] { return files_.Rename(name, path_); }));
        renamed = true;
        Check(Persist([&] { return files_.SyncFolder(folder_); }));
    }

    // Renaming would cost the file a name, its owner, or the right to be saved at all. A whole copy
    // of it stands beside it, where that can be, until the new contents are on the disk.
    void WriteInPlace(std::string_view contents) {
        std::unique_ptr<OutputFile> file;
        Check(Persist([&] { return files_.OpenToWrite(path_, file); }));
        std::string kept;
        if (old_) {
            std::unique_ptr<InputFile> again;
            Check(Persist([&] { return files_.OpenToRead(path_, again); }));
            Check(ReadBytes(*again, static_cast<std::size_t>(before_.Length()), kept));
        }
        Path copy;
        const bool has_copy = old_ && WriteCopy(copy, kept);
        bool whole = false;
        const OnExit clean([&] {
            if (has_copy && (whole || Restore(kept))) {
                files_.Remove(copy);
            } else if (!has_copy && !whole && old_) {
                static_cast<void>(Restore(kept));
            }
        });
        Overwrite(*file, contents);
        whole = true;
    }

    void Overwrite(OutputFile& file, std::string_view contents) const {
        WriteBytes(files_, file, contents, path_);
        Check(Persist([&] { return file.SetLength(contents.size()); }));
        Check(Persist([&] { return file.Sync(); }));
    }

    // Returns whether the copy stands on the disk.
    [[nodiscard]] bool WriteCopy(Path& name, std::string_view contents) const {
        std::unique_ptr<OutputFile> copy;
        if (Persist([&] { return files_.CreateUnseen(folder_, true, copy); })) {
            return false;
        }
        bool written = false;
        TrapFailure(
            [&] {
                WriteAll(files_, *copy, contents, path_);
                written = true;
            },
            [](const RunTimeError&) {});
        if (!written || TakeFreeName(*copy, path_.string() + ".orvik-copy", name)) {
            return false;
        }
        if (Persist([&] { return files_.SyncFolder(folder_); })) {
            files_.Remove(name);
            return false;
        }
        return true;
    }

    // Puts the old contents back after a failure. Returns whether they are there.
    [[nodiscard]] bool Restore(std::string_view contents) const {
        bool restored = false;
        TrapFailure(
            [&] {
                std::unique_ptr<OutputFile> file;
                Check(Persist([&] { return files_.OpenToWrite(path_, file); }));
                Overwrite(*file, contents);
                restored = true;
            },
            [](const RunTimeError&) {});
        return restored;
    }

    FileSystem& files_;
    Path path_;
    Path folder_;
    SaveManner manner_;
    std::unique_ptr<FolderLock> lock_;
    std::unique_ptr<InputFile> old_;
    FileStatus before_;
    bool unreadable_ = false;
};

bool Save(FileSystem& files,
          const std::string& name,
          bool wants_old,
          const Rewrite& rewrite,
          const SaveManner& manner) {
    const FileKind kind = StatusOf(files, name).Kind;
    BookWriter saving(files, name, manner);
    if (kind == FileKind::CharacterDevice) {
        // A device such as a terminal takes the bytes as they come.
        const std::optional<std::string> contents = rewrite(std::nullopt);
        if (contents) {
            saving.WriteToDevice(*contents);
        }
        return contents.has_value();
    }
    if (kind != FileKind::Regular && kind != FileKind::Missing) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    saving.Lock();
    const std::optional<std::string> contents =
        rewrite(saving.Read(kind == FileKind::Regular, wants_old));
    if (contents) {
        saving.Write(*contents);
    }
    return contents.has_value();
}

}  // namespace

void CheckFile(FileSystem& files, std::error_code error, const Path& path) {
    if (!error) {
        return;
    }
    if (error == std::errc::no_such_file_or_directory) {
        FileStatus folder;
        if (Persist([&] { return files.Status(FolderOf(path), folder); }) ||
            folder.Kind != FileKind::Folder) {
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
    CheckFile(files, Persist([&] { return files.Status(name, status); }), name);
    return status;
}

std::error_code ReadBytes(InputFile& file, std::size_t count, std::string& bytes) {
    bytes.clear();
    std::string part;
    while (bytes.size() < count) {
        const std::error_code error =
            Persist([&] { return file.Read(count - bytes.size(), part); });
        if (error) {
            return error;
        }
        if (part.empty()) {
            break;
        }
        if (bytes.empty()) {
            bytes.swap(part);
        } else {
            bytes.append(part);
        }
    }
    return {};
}

bool RewriteFile(FileSystem& files,
                 const std::string& name,
                 const Rewrite& rewrite,
                 const SaveManner& manner) {
    return Save(files, name, true, rewrite, manner);
}

void ReplaceFile(FileSystem& files, const std::string& name, std::string_view contents) {
    Save(files, name, false, [&](const auto& /*old*/) { return std::string(contents); }, {});
}

void AppendToFile(FileSystem& files, const std::string& name, std::string_view contents) {
    RewriteFile(files, name, [&](const std::optional<std::string>& old) {
        return old.value_or("").append(contents);
    });
}

void TryWriting(FileSystem& files, const std::string& name) {
    const FileStatus status = StatusOf(files, name);
    std::unique_ptr<OutputFile> file;
    if (status.Kind == FileKind::Missing) {
        const Path path = files.ResolveLinks(name);
        CheckFile(
            files, Persist([&] { return files.CreateUnseen(FolderOf(path), true, file); }), path);
    } else if (status.Kind == FileKind::Regular) {
        CheckFile(files, Persist([&] { return files.OpenToWrite(name, file); }), name);
    } else {
        throw RunTimeError(Failure::PathFileAccess);
    }
}

void KeepCopy(FileSystem& files, const std::string& name, std::string_view contents) {
    std::unique_ptr<OutputFile> file;
    // For nobody else, as the book itself may be.
    CheckFile(files, Persist([&] { return files.CreateUnseen(FolderOf(name), true, file); }), name);
    WriteAll(files, *file, contents, name);
    Path copy;
    CheckFile(files, TakeFreeName(*file, name + ".bak", copy), copy);
    const OnFailure undo([&] { files.Remove(copy); });
    CheckFile(files, CloseSynced(*file), copy);
}

}  // namespace orvik
