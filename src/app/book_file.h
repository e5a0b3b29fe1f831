// How the commands write whole files and add to them. A file has its old contents or its new ones,
// whatever happens in between, and what was saved is on the disk.
//
// Names are given as bytes. Failures are those of the classic file statements: 53 for a missing
// file, 76 for a missing folder, 70 for no permission and for a folder that another program is
// saving to, 57 for a disk that fails, 61 for a full one, 75 for a folder, an empty name and
// anything else that is no ordinary file.

#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_system.h"

namespace orvik {

// Persist: makes a call again as long as a signal interrupts it; returns its error.
template <class Call>
std::error_code Persist(const Call& call) {
    std::error_code error;
    do {
        error = call();
    } while (error == std::errc::interrupted);
    return error;
}

// Throws the failure that an error of a file is; nothing for no error. A missing file in a missing
// folder is a missing path.
void CheckFile(FileSystem& files, std::error_code error, const FileSystem::Path& path);

// The status of the file that a name stands for. Errors: those above.
[[nodiscard]] FileStatus StatusOf(FileSystem& files, const std::string& name);

// Reads up to count bytes, fewer only where the file ends.
[[nodiscard]] std::error_code ReadBytes(InputFile& file, std::size_t count, std::string& bytes);

// Makes the new contents of a file from the old ones, which are none where there is no file;
// without new contents nothing is written.
using Rewrite =
    std::function<std::optional<std::string>(const std::optional<std::string>& old_contents)>;

// How a file is saved.
struct SaveManner {
    // So long the save waits for another program's.
    std::chrono::milliseconds LongestWait = std::chrono::seconds(10);
    // Whether a file that is not there yet is for nobody but the user.
    bool OnlyMine = false;
};

// RewriteFile: reads a file and writes it anew, or creates it. No other program that saves comes in
// between. Returns whether it was written. A symbolic link stays one, and the file keeps its owner,
// group, permissions, access list and hard links.
bool RewriteFile(FileSystem& files,
                 const std::string& name,
                 const Rewrite& rewrite,
                 const SaveManner& manner = {});

// Replaces the contents of a file, or creates it.
void ReplaceFile(FileSystem& files, const std::string& name, std::string_view contents);

// Adds to the end of a file, or creates it.
void AppendToFile(FileSystem& files, const std::string& name, std::string_view contents);

// Fails as writing to a file would, before the text is made. No file is left that was not there.
void TryWriting(FileSystem& files, const std::string& name);

// KeepCopy: writes contents into a new file NAME.bak, or the first of NAME.bak1, NAME.bak2 ... that
// is free.
void KeepCopy(FileSystem& files, const std::string& name, std::string_view contents);

}  // namespace orvik
