// One saving of one file. Failures are those of file_calls.h.

#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "app/late_text.h"
#include "platform/file_system.h"
#include "platform/file_talk.h"

namespace orvik {

// How a file is saved.
struct SaveManner {
    // So long the save waits for another program's.
    std::chrono::milliseconds LongestWait = std::chrono::seconds(10);
    // Whether a file that is not there yet is for nobody but the user.
    bool OnlyMine = false;
};

class BookWriter {
 public:
    using Path = FileSystem::Path;

    // Both must outlive the writer. The user is told whom the saving waits for.
    BookWriter(FileSystem& files,
               FileTalk& talk,
               const std::string& name,
               const SaveManner& manner);

    // Waits until no other program saves into the folder or the file, and removes what programs
    // that were killed while they saved have left there.
    void Lock();

    // What the file holds; nothing where there is none. One that exists and is not wanted need not
    // be readable.
    std::optional<std::string> Read(bool exists, bool wanted);

    // The new contents, as they come or in the old ones' place.
    void WriteToDevice(const LateText& contents) const;
    void Write(const LateText& contents);
    // The contents that the file had before a saving was interrupted.
    void PutBack(std::string_view contents) const;

    // What the file became; unknown where the system did not tell.
    [[nodiscard]] std::optional<FileIdentity> Identity() const { return identity_; }

 private:
    void Check(std::error_code error) const;
    void WaitForLock(const Path& path,
                     const std::string& kind,
                     std::unique_ptr<FolderLock>& kept) const;
    void CheckUnchanged() const;
    void TakePlace(std::unique_ptr<OutputFile> file);
    void WriteInPlace(const LateText& contents);
    [[nodiscard]] Path KeepOld(std::string_view contents) const;
    // What was written becomes all of the file, and is on the disk.
    void EndOverwriting(OutputFile& file, std::uint64_t length) const;
    [[nodiscard]] bool Restored(std::string_view contents) const;
    void Identify();

    FileSystem& files_;
    FileTalk& talk_;
    Path path_;
    Path folder_;
    SaveManner manner_;
    std::unique_ptr<FolderLock> lock_;
    std::unique_ptr<FolderLock> lock_of_file_;
    bool locked_ = false;
    std::unique_ptr<InputFile> old_;
    FileStatus before_;
    bool unreadable_ = false;
    std::optional<FileIdentity> identity_;
};

}  // namespace orvik
