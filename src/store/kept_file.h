// Small files that the program keeps for its user, such as the list of the last books. Nobody is
// asked about them: what cannot be read is as if it was not there, and what cannot be written is
// forgotten.

#pragma once

#include <optional>
#include <string>

#include "app/book_file.h"
#include "platform/file_system.h"

namespace orvik {

// ReadKept: what a file holds; nothing where there is no file that can be read.
[[nodiscard]] std::optional<std::string> ReadKept(FileSystem& files, const std::string& name);

// RewriteKept: makes a file anew, or creates it and its folders for nobody but the user. What is no
// ordinary file stays.
void RewriteKept(FileSystem& files, const std::string& name, const Rewrite& rewrite);

}  // namespace orvik
