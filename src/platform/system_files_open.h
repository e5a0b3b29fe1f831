// Real files that are open.

#pragma once

#include <memory>

#include "platform/file_system.h"
#include "platform/system_files_descriptor.h"

namespace orvik {

// A real file that is open for reading.
class SystemInput : public InputFile {
 public:
    explicit SystemInput(Descriptor file) : file_(std::move(file)) {}

    std::error_code Status(FileStatus& status) override;
    std::error_code Read(std::size_t count, std::string& bytes) override;
    std::error_code Rewind() override;
    [[nodiscard]] int Number() const { return file_.Number(); }

 private:
    Descriptor file_;
};

class SystemOutput : public OutputFile {
 public:
    // name is that of a file that was created with one; the file goes with this unless it takes
    // another. hold keeps the end of the program until then.
    SystemOutput(Descriptor file,
                 bool syncs,
                 std::filesystem::path name = {},
                 std::unique_ptr<EndHold> hold = nullptr)
        : file_(std::move(file)), syncs_(syncs), name_(std::move(name)), hold_(std::move(hold)) {}
    SystemOutput(const SystemOutput&) = delete;
    SystemOutput& operator=(const SystemOutput&) = delete;
    SystemOutput(SystemOutput&&) = delete;
    SystemOutput& operator=(SystemOutput&&) = delete;
    ~SystemOutput() override { Discard(); }

    std::error_code Write(std::string_view bytes, std::size_t& written) override;
    std::error_code SetLength(std::uint64_t length) override;
    std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) override;
    std::error_code Sync() override;
    std::error_code TakeName(const std::filesystem::path& name) override;
    std::error_code Close() override { return file_.Close(); }

 private:
    // Gives a file without a name a passing one, by copying it.
    std::error_code CopyInto(const std::filesystem::path& folder);
    std::error_code Move(const std::filesystem::path& name);
    void Discard();

    Descriptor file_;
    bool syncs_;
    std::filesystem::path name_;
    std::unique_ptr<EndHold> hold_;
};

}  // namespace orvik
