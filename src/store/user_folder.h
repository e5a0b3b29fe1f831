// Where a user's files of each kind are kept.

#pragma once

#include <string>

namespace orvik {

// Nobody else may look into folders and files that are made there.
inline constexpr int kFolderMode = 0700;
inline constexpr int kFileMode = 0600;

// UserFolder: the folder that a variable such as "XDG_CONFIG_HOME" names; one that is not absolute
// does not count, and then it is this folder in the user's home.
//   "XDG_CONFIG_HOME", ".config" -> "/home/ada/.config"
[[nodiscard]] std::string UserFolder(const char* variable, const char* in_home);

}  // namespace orvik
