// The real files, with a look at those that are open for reading.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#include "platform/system_files.h"

namespace orvik::depth {

// What the commands of one step did with files that they read.
struct Reading {
    int Open = 0;
    // Of the files that were opened in this step.
    int Opened = 0;
    int ClosedEarly = 0;  // after the first of their bytes was read, and before the last
    std::size_t Step = 0;

    void BeginStep() {
        Opened = 0;
        ClosedEarly = 0;
        ++Step;
    }
};

class WatchedInput : public InputFile {
 public:
    WatchedInput(std::unique_ptr<InputFile> file, Reading& reading)
        : file_(std::move(file)), reading_(reading), step_(reading.Step) {
        ++reading_.Open;
        ++reading_.Opened;
        FileStatus status;
        if (!file_->Status(status)) {
            left_ = status.Length();
        }
    }
    WatchedInput(const WatchedInput&) = delete;
    WatchedInput& operator=(const WatchedInput&) = delete;
    WatchedInput(WatchedInput&&) = delete;
    WatchedInput& operator=(WatchedInput&&) = delete;
    ~WatchedInput() override {
        --reading_.Open;
        reading_.ClosedEarly += begun_ && left_ > 0 && step_ == reading_.Step ? 1 : 0;
    }

    std::error_code Status(FileStatus& status) override { return file_->Status(status); }
    std::error_code Read(std::size_t count, std::string& bytes) override {
        const std::error_code error = file_->Read(count, bytes);
        begun_ = true;
        left_ -= error ? 0 : std::min<std::uint64_t>(left_, bytes.size());
        return error;
    }
    std::error_code Rewind() override {
        FileStatus status;
        left_ = file_->Status(status) ? 0 : status.Length();
        return file_->Rewind();
    }
    [[nodiscard]] InputFile& Real() { return *file_; }

 private:
    std::unique_ptr<InputFile> file_;
    Reading& reading_;
    std::size_t step_;
    bool begun_ = false;
    std::uint64_t left_ = 0;
};

// Takes the attributes of a watched file.
class WatchedOutput : public OutputFile {
 public:
    explicit WatchedOutput(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}
    std::error_code Write(std::string_view bytes, std::size_t& written) override {
        return file_->Write(bytes, written);
    }
    std::error_code SetLength(std::uint64_t length) override { return file_->SetLength(length); }
    std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) override {
        return file_->TakeAttributesOf(dynamic_cast<WatchedInput&>(other).Real(), all_kept);
    }
    std::error_code Sync() override { return file_->Sync(); }
    std::error_code TakeName(const std::filesystem::path& name) override {
        return file_->TakeName(name);
    }
    std::error_code Close() override { return file_->Close(); }

 private:
    std::unique_ptr<OutputFile> file_;
};

class WatchedFiles : public SystemFiles {
 public:
    WatchedFiles() : SystemFiles(false) {}

    Reading reading;

    std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) override {
        const std::error_code error = SystemFiles::OpenToRead(path, file);
        if (!error) {
            file = std::make_unique<WatchedInput>(std::move(file), reading);
        }
        return error;
    }
    std::error_code OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) override {
        return Watch(SystemFiles::OpenToWrite(path, file), file);
    }
    std::error_code CreateUnseen(const Path& folder,
                                 bool only_mine,
                                 std::unique_ptr<OutputFile>& file) override {
        return Watch(SystemFiles::CreateUnseen(folder, only_mine, file), file);
    }
    // The user has none: a run leaves nothing outside its folder.
    Path StateFolder() override { return {}; }

 private:
    static std::error_code Watch(std::error_code error, std::unique_ptr<OutputFile>& file) {
        if (!error) {
            file = std::make_unique<WatchedOutput>(std::move(file));
        }
        return error;
    }
};

}  // namespace orvik::depth
