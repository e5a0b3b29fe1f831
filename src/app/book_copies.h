// Copies of books: the one that stands on the disk while a book is written in place, and the one
// that is kept where saving drops something. Also what is left of savings that were interrupted.

#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_system.h"
#include "platform/file_talk.h"

namespace orvik {

// WriteCopy: writes contents into a new file, for nobody but the user, under the first of NAME,
// NAME1, NAME2 ... that is free, and waits until it is on the disk. taken is the name that was
// taken or, after an error, tried.
[[nodiscard]] std::error_code WriteCopy(FileSystem& files,
                                        const FileSystem::Path& name,
                                        std::string_view contents,
                                        FileSystem::Path& taken);

// The file name of a copy that stands beside a book: "book.pml.orvik-copy".
[[nodiscard]] std::string CopyNameBeside(const FileSystem::Path& book);

// WriteCopyElsewhere: the same in the user's own folder, for a book whose folder takes no new file.
// book is the name that ResolveLinks gives.
[[nodiscard]] std::error_code WriteCopyElsewhere(FileSystem& files,
                                                 const FileSystem::Path& book,
                                                 std::string_view contents,
                                                 FileSystem::Path& taken);

// IsClearlyOld: whether a file was written an hour ago, and so, where no lock tells, by a program
// that has ended: no saving takes so long.
[[nodiscard]] bool IsClearlyOld(const FileStatus& status);

// RemoveLeftovers: removes the files of this user that bear a passing name in a folder. Unless its
// lock is held another program may be about to rename them, and only old ones go.
void RemoveLeftovers(FileSystem& files, const FileSystem::Path& folder, bool locked);

// LeftCopies: the copies that interrupted savings have left of a book and that differ from it; none
// while a program is saving. A copy that holds what the book holds goes.
[[nodiscard]] std::vector<FileSystem::Path> LeftCopies(FileSystem& files, const std::string& book);

// RestoreCopy: makes a book what a copy holds, and removes the copy.
void RestoreCopy(FileSystem& files,
                 FileTalk& talk,
                 const std::string& book,
                 const FileSystem::Path& copy);

}  // namespace orvik
