// Calls of the file layer whose errors become the failures of the classic file statements:
// 53 for a missing file, 76 for a missing folder, 70 for no permission and for a folder that
// another program is saving to, 57 for a disk that fails, 61 for a full one, 75 for a folder, an
// empty name and anything else that is no ordinary file.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

#include "app/run_time_error.h"
#include "platform/file_system.h"

namespace orvik {

// Makes a call again as long as a signal interrupts it.
template <class Call>
std::error_code Persist(const Call& call) {
    std::error_code error;
    do {
        error = call();
    } while (error == std::errc::interrupted);
    return error;
}

// The failure that an error of a file is.
[[nodiscard]] Failure FailureOf(std::error_code error);

// Throws the failure that an error of a file is; nothing for no error. A missing file in a missing
// folder is a missing path.
void CheckFile(FileSystem& files, std::error_code error, const FileSystem::Path& path);

// The status of the file that a name stands for. Errors: those above.
[[nodiscard]] FileStatus StatusOf(FileSystem& files, const std::string& name);

// Reads up to count bytes, fewer only where the file ends.
[[nodiscard]] std::error_code ReadBytes(InputFile& file, std::size_t count, std::string& bytes);
// Reads a file from its beginning to its end.
[[nodiscard]] std::error_code ReadWhole(FileSystem& files,
                                        const FileSystem::Path& path,
                                        std::string& bytes);

[[nodiscard]] std::error_code WriteBytes(OutputFile& file, std::string_view bytes);
// Writes, and waits until it is on the disk.
[[nodiscard]] std::error_code WriteSynced(OutputFile& file, std::string_view bytes);
// Closes a file that was waited for.
[[nodiscard]] std::error_code CloseSynced(OutputFile& file);

}  // namespace orvik
