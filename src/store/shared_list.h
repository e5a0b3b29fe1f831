// The list of recently used files that all programs of the desktop share.

#pragma once

#include <string>

#include "platform/file_system.h"

namespace orvik {

// AddToSharedList: a file was used by this program. RemoveFromSharedList: takes out what this
// program has put there. list is the list's own name; one that was not understood stays as it is,
// and a failure is no matter.
void AddToSharedList(FileSystem& files, const std::string& list, const std::string& file);
void RemoveFromSharedList(FileSystem& files, const std::string& list);

}  // namespace orvik
