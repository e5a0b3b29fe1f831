// Symbolic links.

#pragma once

#include <filesystem>

namespace orvik {

// ResolveLinks: the file that a name stands for in the end, existing or not. What replaces a file
// replaces that one, so that a link stays a link. A link to itself is returned as it is.
[[nodiscard]] std::filesystem::path ResolveLinks(std::filesystem::path path);

// FolderOf: the folder that a file is in.
[[nodiscard]] std::filesystem::path FolderOf(const std::filesystem::path& path);

}  // namespace orvik
