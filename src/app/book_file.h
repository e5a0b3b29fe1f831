// How the commands write whole files and add to them. A file is replaced as a whole or not at all.
//
// Names are given as bytes. Failures are those of the classic file statements: 53 for a missing
// file, 76 for a missing folder, 70 for no permission, 61 for a full disk, 75 for a folder, an
// empty name and anything else that is no ordinary file.

#pragma once

#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_system.h"

namespace orvik {

// Throws the failure that an error of a file is; nothing for no error. A missing file in a missing
// folder is a missing path.
void CheckFile(FileSystem& files, std::error_code error, const FileSystem::Path& path);

// The status of the file that a name stands for. Errors: those above.
[[nodiscard]] FileStatus StatusOf(FileSystem& files, const std::string& name);

// Replaces the contents of a file, or creates it. The new contents are written beside the old file
// and renamed over it, so a failure leaves the file as it was.
void ReplaceFile(FileSystem& files, const std::string& name, std::string_view contents);

// Adds to the end of a file, or creates it. After a failure the file has its old length.
void AppendToFile(FileSystem& files, const std::string& name, std::string_view contents);

// Fails as adding to a file would, before the text is made. No file is left that was not there.
void TryAppending(FileSystem& files, const std::string& name);

}  // namespace orvik
