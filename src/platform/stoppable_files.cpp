#include "platform/stoppable_files.h"

#include <algorithm>
#include <utility>

namespace orvik {
namespace {

// Written in a moment, so that whoever stops it does not wait.
constexpr std::size_t kPiece = std::size_t{256} << 10U;
constexpr std::chrono::milliseconds kShortWait{100};

std::error_code Stopped() {
    return std::make_error_code(std::errc::operation_canceled);
}

}  // namespace

class StoppableFiles::Output : public OutputFile {
 public:
    Output(std::unique_ptr<OutputFile> file, StoppableFiles& files, bool is_new)
        : file_(std::move(file)), files_(files), is_new_(is_new) {}

    std::error_code Write(std::string_view bytes, std::size_t& written) override {
        if (files_.IsStopped(0) && MayStop()) {
            return Stopped();
        }
        const std::error_code error = file_->Write(bytes.substr(0, kPiece), written);
        if (!error) {
            files_.IsStopped(written);
        }
        return error;
    }
    std::error_code SetLength(std::uint64_t length) override { return file_->SetLength(length); }
    std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) override {
        return file_->TakeAttributesOf(other, all_kept);
    }
    std::error_code Sync() override { return file_->Sync(); }
    std::error_code TakeName(const std::filesystem::path& name) override {
        return files_.IsStopped(0) ? Stopped() : file_->TakeName(name);
    }
    std::error_code Close() override { return file_->Close(); }

 private:
    bool MayStop() { return is_new_ || !std::exchange(files_.overwriting_was_stopped_, true); }

    std::unique_ptr<OutputFile> file_;
    StoppableFiles& files_;
    bool is_new_;
};

bool StoppableFiles::IsStopped(std::size_t written) {
    stopped_ = stopped_ || !go_on_(written);
    return stopped_;
}

std::error_code StoppableFiles::OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) {
    const std::error_code error = files_.OpenToWrite(path, file);
    if (!error) {
        file = std::make_unique<Output>(std::move(file), *this, false);
    }
    return error;
}

std::error_code StoppableFiles::CreateUnseen(const Path& folder,
                                             bool only_mine,
                                             std::unique_ptr<OutputFile>& file) {
    const std::error_code error = files_.CreateUnseen(folder, only_mine, file);
    if (!error) {
        file = std::make_unique<Output>(std::move(file), *this, true);
    }
    return error;
}

std::error_code StoppableFiles::Lock(const Path& path,
                                     std::chrono::milliseconds longest,
                                     std::unique_ptr<FolderLock>& lock) {
    std::chrono::milliseconds left = longest;
    while (true) {
        const std::chrono::milliseconds now = std::min(left, kShortWait);
        const std::error_code error = files_.Lock(path, now, lock);
        left -= now;
        if (error != std::errc::device_or_resource_busy) {
            return error;
        }
        if (IsStopped(0)) {
            return Stopped();
        }
        if (left.count() <= 0) {
            return error;
        }
    }
}

std::error_code StoppableFiles::Status(const Path& path, FileStatus& status) {
    return files_.Status(path, status);
}

std::error_code StoppableFiles::OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) {
    return files_.OpenToRead(path, file);
}

std::error_code StoppableFiles::Rename(const Path& from, const Path& to) {
    return files_.Rename(from, to);
}

std::error_code StoppableFiles::Remove(const Path& path) {
    return files_.Remove(path);
}

std::error_code StoppableFiles::SyncFolder(const Path& folder) {
    return files_.SyncFolder(folder);
}

std::error_code StoppableFiles::CreateFolders(const Path& folder) {
    return files_.CreateFolders(folder);
}

std::error_code StoppableFiles::RemoveFolder(const Path& folder) {
    return files_.RemoveFolder(folder);
}

std::string StoppableFiles::LockKeeper(const Path& path) {
    return files_.LockKeeper(path);
}

std::error_code StoppableFiles::List(const Path& folder,
                                     std::string_view beginning,
                                     std::vector<FolderEntry>& entries) {
    return files_.List(folder, beginning, entries);
}

std::unique_ptr<EndHold> StoppableFiles::HoldEnd() {
    return files_.HoldEnd();
}

FileSystem::Path StoppableFiles::StateFolder() {
    return files_.StateFolder();
}

bool StoppableFiles::IsSame(const Path& one, const Path& other) {
    return files_.IsSame(one, other);
}

FileSystem::Path StoppableFiles::ResolveLinks(Path path) {
    return files_.ResolveLinks(std::move(path));
}

}  // namespace orvik
