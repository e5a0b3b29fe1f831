// The real files of this machine: the one place below the windows that calls POSIX and Linux.

#pragma once

#include "platform/file_system.h"

namespace orvik {

class SystemFiles : public FileSystem {
 public:
    // Without syncing nothing is waited for until it is on the disk: for tests, which write much
    // that nobody keeps. Without unnamed files new ones have a name from the beginning, as where
    // the file system knows no others.
    explicit SystemFiles(bool syncs = true, bool unnamed = true)
        : syncs_(syncs), unnamed_(unnamed) {}

    std::error_code Status(const Path& path, FileStatus& status) override;
    std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) override;
    std::error_code OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) override;
    std::error_code CreateUnseen(const Path& folder,
                                 bool only_mine,
                                 std::unique_ptr<OutputFile>& file) override;
    std::error_code Rename(const Path& from, const Path& to) override;
    std::error_code Remove(const Path& path) override;
    std::error_code SyncFolder(const Path& folder) override;
    std::error_code CreateFolders(const Path& folder) override;
    std::error_code RemoveFolder(const Path& folder) override;
    std::error_code Lock(const Path& path,
                         std::chrono::milliseconds longest,
                         std::unique_ptr<FolderLock>& lock) override;
    std::string LockKeeper(const Path& path) override;
    std::error_code List(const Path& folder,
                         std::string_view beginning,
                         std::vector<FolderEntry>& entries) override;
    std::unique_ptr<EndHold> HoldEnd() override;
    Path StateFolder() override;
    bool IsSame(const Path& one, const Path& other) override;
    Path ResolveLinks(Path path) override;

 private:
    bool syncs_;
    bool unnamed_;
};

// HandleSignals: a write beyond a limit, or to a reader who has gone, is an error of that write and
// does not end the program. TERM, INT and HUP end it, unless they were ignored, but not while
// FileSystem::HoldEnd holds the end.
void HandleSignals();

// TellOfSignals: from now on the first signal that asks for the end is only told of; the next one
// ends the program a second later, so that what the first one began can end. Returns the number of
// a file that can be read from once one was told of, or -1 where there is none; then nothing
// changes. Called once.
[[nodiscard]] int TellOfSignals();

// EndBySignal: ends the program as the signal would have that was told of.
void EndBySignal();

}  // namespace orvik
