#include "app/book_writer.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "app/book_copies.h"
#include "app/file_calls.h"
#include "app/run_time_error.h"
#include "app/scope.h"
#include "platform/passing_name.h"

namespace orvik {
namespace {

// So long a save waits without a word: most others are over sooner.
constexpr std::chrono::milliseconds kQuietWait{500};

bool TakesNoNewFile(std::error_code error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted;
}

// Writes a text as it is made; length is what was written.
std::error_code WriteText(OutputFile& file, const LateText& text, std::uint64_t& length) {
    std::error_code error;
    length = 0;
    text.Give([&](std::string_view piece) {
        if (!error) {
            error = WriteBytes(file, piece);
            length += piece.size();
        }
    });
    return error;
}

}  // namespace

BookWriter::BookWriter(FileSystem& files,
                       FileTalk& talk,
                       const std::string& name,
                       const SaveManner& manner)
    : files_(files),
      talk_(talk),
      path_(files.ResolveLinks(name)),
      folder_(FolderOf(path_)),
      manner_(manner) {}

void BookWriter::Check(std::error_code error) const {
    CheckFile(files_, error, path_);
}

void BookWriter::Lock() {
    WaitForLock(folder_, "folder", lock_);
    RemoveLeftovers(files_, folder_, lock_ != nullptr);
    // A book with names in several folders is written in place by those who keep another lock.
    FileStatus now;
    Check(Persist([&] { return files_.Status(path_, now); }));
    locked_ = lock_ != nullptr;
    if (now.Kind == FileKind::Regular && now.Names > 1) {
        WaitForLock(path_, "file", lock_of_file_);
        locked_ = locked_ && lock_of_file_ != nullptr;
    }
}

void BookWriter::WaitForLock(const Path& path,
                             const std::string& kind,
                             std::unique_ptr<FolderLock>& kept) const {
    const auto lock = [&](std::chrono::milliseconds longest) {
        return Persist([&] { return files_.Lock(path, longest, kept); });
    };
    const std::chrono::milliseconds quiet = std::min(kQuietWait, manner_.LongestWait);
    std::error_code error = lock(quiet);
    if (error == std::errc::device_or_resource_busy) {
        const std::string keeper = files_.LockKeeper(path);
        talk_.Waits("Waiting for " + keeper + ", which is saving into this " + kind);
        error = lock(manner_.LongestWait - quiet);
        if (error == std::errc::device_or_resource_busy) {
            throw RunTimeError(
                FailureOf(error),
                files_.LockKeeper(path) + " was still saving into this " + kind + ".");
        }
    }
    if (error != std::errc::not_supported) {
        Check(error);
    }
}

std::optional<std::string> BookWriter::Read(bool exists, bool wanted) {
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

void BookWriter::WriteToDevice(const LateText& contents) const {
    std::unique_ptr<OutputFile> device;
    Check(Persist([&] { return files_.OpenToWrite(path_, device); }));
    std::uint64_t length = 0;
    Check(WriteText(*device, contents, length));
    Check(device->Close());
}

void BookWriter::Write(const LateText& contents) {
    // Renaming would cost the file a name; one that has none is found by those alone who have it
    // open.
    if (unreadable_ || (old_ && before_.Names != 1)) {
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
    bool all_kept = true;
    if (old_ && Persist([&] { return file->TakeAttributesOf(*old_, all_kept); })) {
        WriteInPlace(contents);
        return;
    }
    std::uint64_t length = 0;
    Check(WriteText(*file, contents, length));
    Check(Persist([&] { return file->Sync(); }));
    CheckUnchanged();
    TakePlace(std::move(file));
    if (!all_kept) {
        talk_.Note("Not all extended attributes of the file could be kept");
    }
}

// Where there are no locks another program may have saved meanwhile: it would be lost.
void BookWriter::CheckUnchanged() const {
    FileStatus now;
    Check(Persist([&] { return files_.Status(path_, now); }));
    if (!locked_ && now.Identity != before_.Identity) {
        throw RunTimeError(Failure::PermissionDenied,
                           "Another program saved into the file at the same time.");
    }
}

void BookWriter::TakePlace(std::unique_ptr<OutputFile> file) {
    const Path name = folder_ / PassingName(kPassingWhole);
    {
        const auto hold = files_.HoldEnd();
        Check(Persist([&] { return file->TakeName(name); }));
        const OnFailure clean([&] { files_.Remove(name); });
        Check(CloseSynced(*file));
        Check(Persist([&] { return files_.Rename(name, path_); }));
    }
    Check(Persist([&] { return files_.SyncFolder(folder_); }));
    Identify();
}

// Renaming would cost the file a name, its owner, or the right to be saved at all. A whole copy of
// it stands on the disk until the new contents do.
void BookWriter::WriteInPlace(const LateText& contents) {
    const auto hold = files_.HoldEnd();
    std::unique_ptr<OutputFile> file;
    Check(Persist([&] { return files_.OpenToWrite(path_, file); }));
    const auto overwrite = [&] {
        std::uint64_t length = 0;
        Check(WriteText(*file, contents, length));
        EndOverwriting(*file, length);
    };
    if (!old_) {
        overwrite();
        return;
    }
    std::string kept;
    Check(ReadWhole(files_, path_, kept));
    const Path copy = KeepOld(kept);
    bool needed = false;
    // Cleaning up must take no memory, which may have run out.
    Path copies;
    const OnExit clean([&] {
        if (!needed) {
            files_.Remove(copy);
            files_.SyncFolder(copies);
        }
    });
    copies = FolderOf(copy);
    CheckUnchanged();
    needed = true;
    TrapFailure(
        [&] {
            overwrite();
            needed = false;
        },
        [&](const RunTimeError& failure) {
            needed = !Restored(kept);
            throw needed
                ? RunTimeError(failure.Cause(), "The old contents stand in " + copy.string() + ".")
                : failure;
        });
    Identify();
}

void BookWriter::PutBack(std::string_view contents) const {
    const auto hold = files_.HoldEnd();
    std::unique_ptr<OutputFile> file;
    Check(Persist([&] { return files_.OpenToWrite(path_, file); }));
    Check(WriteBytes(*file, contents));
    EndOverwriting(*file, contents.size());
}

void BookWriter::EndOverwriting(OutputFile& file, std::uint64_t length) const {
    Check(Persist([&] { return file.SetLength(length); }));
    Check(Persist([&] { return file.Sync(); }));
}

// Beside the book, or in the user's own folder where that takes no new file.
BookWriter::Path BookWriter::KeepOld(std::string_view contents) const {
    Path copy;
    std::error_code error = WriteCopy(files_, folder_ / CopyNameBeside(path_), contents, copy);
    if (error) {
        const std::error_code elsewhere = WriteCopyElsewhere(files_, path_, contents, copy);
        if (!elsewhere || TakesNoNewFile(error)) {
            error = elsewhere;
        }
    }
    if (error) {
        throw RunTimeError(FailureOf(error), "No copy of the old contents can be kept.");
    }
    return copy;
}

// Puts the old contents back after a failure. Returns whether they are there.
bool BookWriter::Restored(std::string_view contents) const {
    bool restored = false;
    TrapFailure(
        [&] {
            PutBack(contents);
            restored = true;
        },
        [](const RunTimeError&) {});
    return restored;
}

void BookWriter::Identify() {
    FileStatus now;
    if (!Persist([&] { return files_.Status(path_, now); }) && now.Kind == FileKind::Regular) {
        identity_ = now.Identity;
    }
}

}  // namespace orvik
