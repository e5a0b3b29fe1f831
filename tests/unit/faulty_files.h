// The real files with a disk that fails: every call is numbered, and one of them goes wrong.

#pragma once

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/system_files.h"

namespace orvik::test {

// Counts calls. The call with this number, and the second one if it has any, returns an error, or,
// without one, writes or reads but one byte.
struct Fault {
    std::size_t Call = 0;
    std::size_t Second = 0;
    std::error_code Error;
    std::size_t Calls = 0;
    std::string Failed;  // the names of the calls that went wrong, joined by "+"
    bool Kills = false;  // the program instead of the call

    // Whether this call is one of them.
    bool Hits(const std::string& name) {
        ++Calls;
        const bool hit = Calls == Call || Calls == Second;
        if (hit) {
            if (Kills) {
                std::raise(SIGKILL);
            }
            Failed.append(Failed.empty() ? "" : "+").append(name);
        }
        return hit;
    }
    template <class Call_>
    std::error_code Pass(const std::string& name, const Call_& call) {
        return Hits(name) && Error ? Error : call();
    }
};

class FaultyInput : public InputFile {
 public:
    FaultyInput(std::unique_ptr<InputFile> file, Fault& fault)
        : file_(std::move(file)), fault_(fault) {}
    std::error_code Status(FileStatus& status) override {
        return fault_.Pass("Status", [&] { return file_->Status(status); });
    }
    std::error_code Read(std::size_t count, std::string& bytes) override {
        if (fault_.Hits("Read")) {
            return fault_.Error ? fault_.Error : file_->Read(1, bytes);
        }
        return file_->Read(count, bytes);
    }
    std::error_code Rewind() override {
        return fault_.Pass("Rewind", [&] { return file_->Rewind(); });
    }
    [[nodiscard]] InputFile& Real() { return *file_; }

 private:
    std::unique_ptr<InputFile> file_;
    Fault& fault_;
};

// The calls of one kind of files, which stands before their names.
class FaultOfKind {
 public:
    FaultOfKind(Fault& fault, std::string kind)
        : Error(fault.Error), fault_(fault), kind_(std::move(kind)) {}
    const std::error_code& Error;
    bool Hits(const char* name) { return fault_.Hits(kind_ + name); }
    template <class Call>
    std::error_code Pass(const char* name, const Call& call) {
        return fault_.Pass(kind_ + name, call);
    }

 private:
    Fault& fault_;
    std::string kind_;
};

class FaultyOutput : public OutputFile {
 public:
    FaultyOutput(std::unique_ptr<OutputFile> file, FaultOfKind fault)
        : file_(std::move(file)), fault_(std::move(fault)) {}
    std::error_code Write(std::string_view bytes, std::size_t& written) override {
        if (fault_.Hits("Write")) {
            return fault_.Error ? fault_.Error : file_->Write(bytes.substr(0, 1), written);
        }
        return file_->Write(bytes, written);
    }
    std::error_code SetLength(std::uint64_t length) override {
        return fault_.Pass("SetLength", [&] { return file_->SetLength(length); });
    }
    std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) override {
        return fault_.Pass("TakeAttributesOf", [&] {
            return file_->TakeAttributesOf(dynamic_cast<FaultyInput&>(other).Real(), all_kept);
        });
    }
    std::error_code Sync() override {
        return fault_.Pass("Sync", [&] { return file_->Sync(); });
    }
    std::error_code TakeName(const std::filesystem::path& name) override {
        return fault_.Pass("TakeName", [&] { return file_->TakeName(name); });
    }
    std::error_code Close() override {
        return fault_.Pass("Close", [&] { return file_->Close(); });
    }

 private:
    std::unique_ptr<OutputFile> file_;
    FaultOfKind fault_;
};

class FaultyFiles : public SystemFiles {
 public:
    FaultyFiles() : SystemFiles(false) {}

    Fault fault;
    Path state_folder;  // none

    Path StateFolder() override { return state_folder; }
    std::error_code Status(const Path& path, FileStatus& status) override {
        return fault.Pass("Status", [&] { return SystemFiles::Status(path, status); });
    }
    std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) override {
        return fault.Pass("OpenToRead", [&] {
            const std::error_code error = SystemFiles::OpenToRead(path, file);
            if (!error) {
                file = std::make_unique<FaultyInput>(std::move(file), fault);
            }
            return error;
        });
    }
    std::error_code OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) override {
        return fault.Pass("OpenToWrite",
                          [&] { return Wrap(SystemFiles::OpenToWrite(path, file), file, ""); });
    }
    std::error_code CreateUnseen(const Path& folder,
                                 bool only_mine,
                                 std::unique_ptr<OutputFile>& file) override {
        return fault.Pass("CreateUnseen", [&] {
            return Wrap(SystemFiles::CreateUnseen(folder, only_mine, file), file, "new ");
        });
    }
    std::error_code Rename(const Path& from, const Path& to) override {
        return fault.Pass("Rename", [&] { return SystemFiles::Rename(from, to); });
    }
    std::error_code Remove(const Path& path) override {
        return fault.Pass("Remove", [&] { return SystemFiles::Remove(path); });
    }
    std::error_code SyncFolder(const Path& folder) override {
        return fault.Pass("SyncFolder", [&] { return SystemFiles::SyncFolder(folder); });
    }
    std::error_code CreateFolders(const Path& folder) override {
        return fault.Pass("CreateFolders", [&] { return SystemFiles::CreateFolders(folder); });
    }
    std::error_code RemoveFolder(const Path& folder) override {
        return fault.Pass("RemoveFolder", [&] { return SystemFiles::RemoveFolder(folder); });
    }
    std::error_code Lock(const Path& folder,
                         std::chrono::milliseconds longest,
                         std::unique_ptr<FolderLock>& lock) override {
        return fault.Pass("Lock", [&] { return SystemFiles::Lock(folder, longest, lock); });
    }
    std::error_code List(const Path& folder,
                         std::string_view beginning,
                         std::vector<FolderEntry>& entries) override {
        return fault.Pass("List", [&] { return SystemFiles::List(folder, beginning, entries); });
    }

 private:
    std::error_code Wrap(std::error_code error,
                         std::unique_ptr<OutputFile>& file,
                         const char* kind) {
        if (!error) {
            file = std::make_unique<FaultyOutput>(std::move(file), FaultOfKind(fault, kind));
        }
        return error;
    }
};

}  // namespace orvik::test
