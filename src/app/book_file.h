// How the commands write whole files and add to them. A file has its old contents or its new ones,
// whatever happens in between, and what was saved is on the disk.
//
// Names are given as bytes. Failures are those of file_calls.h.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/book_writer.h"
#include "app/file_calls.h"
#include "app/late_text.h"
#include "platform/file_system.h"
#include "platform/file_talk.h"

namespace orvik {

// Makes the new contents of a file from the old ones, which are none where there is no file;
// without new contents nothing is written.
using Rewrite = std::function<std::optional<LateText>(std::optional<std::string> old_contents)>;

// What became of a saving.
struct Saved {
    bool Written = false;
    // The file as it is now; unknown of a device.
    std::optional<FileIdentity> Identity;
};

// SaveFile: reads a file, if its contents are wanted, and writes it anew, or creates it. No other
// program that saves comes in between. A symbolic link stays one, and the file keeps its owner,
// group, permissions, access list and hard links. The user is told whom the saving waits for, and
// what else a file had that it could not keep.
Saved SaveFile(FileSystem& files,
               FileTalk& talk,
               const std::string& name,
               bool wants_old,
               const Rewrite& rewrite,
               const SaveManner& manner = {});

// RewriteFile: the same without a word. Returns whether the file was written.
bool RewriteFile(FileSystem& files,
                 const std::string& name,
                 const Rewrite& rewrite,
                 const SaveManner& manner = {});

// Replaces the contents of a file, or creates it.
void ReplaceFile(FileSystem& files, const std::string& name, LateText contents);

// Adds to the end of a file, or creates it.
void AppendToFile(FileSystem& files, const std::string& name, std::string_view contents);

// What SaveFile is given to replace the contents, and to add to them.
[[nodiscard]] Rewrite Replacing(LateText contents);
[[nodiscard]] Rewrite Adding(std::string_view contents);

// Fails as writing to a file would, before the text is made. No file is left that was not there.
void TryWriting(FileSystem& files, const std::string& name);

// KeepCopy: writes contents into a new file NAME.bak, or the first of NAME.bak1, NAME.bak2 ... that
// is free. A failure names that file.
void KeepCopy(FileSystem& files, const std::string& name, std::string_view contents);

}  // namespace orvik
