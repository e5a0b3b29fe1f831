// The real files of this machine.

#pragma once

#include "platform/file_system.h"

namespace orvik {

class SystemFiles : public FileSystem {
 public:
    std::error_code Status(const Path& path, FileStatus& status) override;
    std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) override;
    std::error_code OpenToWrite(const Path& path,
                                Writing how,
                                std::unique_ptr<OutputFile>& file) override;
    std::error_code SetPermissions(const Path& path, std::filesystem::perms permissions) override;
    bool IsSame(const Path& one, const Path& other) override;
    std::error_code SetLength(const Path& path, std::uintmax_t length) override;
    std::error_code Rename(const Path& from, const Path& to) override;
    std::error_code Remove(const Path& path) override;
    Path ResolveLinks(Path path) override;
};

}  // namespace orvik
