// Files of which somebody is told how much is written, and who can stop that before it is done.

#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/file_system.h"

namespace orvik {

class StoppableFiles : public FileSystem {
 public:
    // Is told how many bytes were written since it was told last, and says whether to go on. Asked
    // before a file that was written gets its name, too, and while a lock is waited for.
    using GoOn = std::function<bool(std::size_t written)>;

    // The files must outlive this. What is stopped fails with errc::operation_canceled: whatever
    // writes new files from then on, and once what overwrites one. Putting its old contents back
    // is not stopped.
    StoppableFiles(FileSystem& files, GoOn go_on) : files_(files), go_on_(std::move(go_on)) {}

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
    class Output;

    bool IsStopped(std::size_t written);

    FileSystem& files_;
    GoOn go_on_;
    bool stopped_ = false;
    bool overwriting_was_stopped_ = false;
};

}  // namespace orvik
