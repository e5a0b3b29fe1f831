// The files, as the commands see them: an abstract class, so that tests can stand a disk in for the
// real one that fills up or fails. system_files.h has the real one.
//
// Paths and contents are bytes. Every function returns what went wrong, or an error code that is
// false; what it gives back besides that counts only then. Nothing throws but for lack of memory.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace orvik {

enum class FileKind { Missing, Regular, Folder, CharacterDevice, Other };

struct FileStatus {
    FileKind Kind = FileKind::Missing;
    std::uintmax_t Length = 0;  // of a regular file, in bytes
    std::filesystem::perms Permissions = std::filesystem::perms::none;
};

// A file that is open for reading; it is closed when this goes.
class InputFile {
 public:
    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    InputFile(InputFile&&) = delete;
    InputFile& operator=(InputFile&&) = delete;
    virtual ~InputFile() = default;

    // The next count bytes, fewer only where the file ends.
    virtual std::error_code Read(std::size_t count, std::string& bytes) = 0;
};

// A file that is open for writing. Without Close it is closed when this goes, and nobody is told
// whether what was written arrived.
class OutputFile {
 public:
    OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    OutputFile(OutputFile&&) = delete;
    OutputFile& operator=(OutputFile&&) = delete;
    virtual ~OutputFile() = default;

    virtual std::error_code Write(std::string_view bytes) = 0;
    virtual std::error_code Close() = 0;
};

// What a file that is opened for writing may be, and what becomes of its contents.
enum class Writing {
    New,        // must not exist
    Appending,  // is created if need be; everything goes to its end
    Updating,   // must exist; its contents stay
    Replacing,  // is created if need be; its contents go
};

class FileSystem {
 public:
    using Path = std::filesystem::path;

    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    FileSystem(FileSystem&&) = delete;
    FileSystem& operator=(FileSystem&&) = delete;
    virtual ~FileSystem() = default;

    // The file itself, links followed. A file that is not there is no error.
    virtual std::error_code Status(const Path& path, FileStatus& status) = 0;
    virtual std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) = 0;
    virtual std::error_code OpenToWrite(const Path& path,
                                        Writing how,
                                        std::unique_ptr<OutputFile>& file) = 0;
    virtual std::error_code SetPermissions(const Path& path,
                                           std::filesystem::perms permissions) = 0;
    // Whether two names stand for one file that is there, links followed.
    virtual bool IsSame(const Path& one, const Path& other) = 0;
    // Cuts a file off, or lengthens it with zero bytes.
    virtual std::error_code SetLength(const Path& path, std::uintmax_t length) = 0;
    // Takes the place of a file that is there.
    virtual std::error_code Rename(const Path& from, const Path& to) = 0;
    virtual std::error_code Remove(const Path& path) = 0;
    // The file that a name stands for in the end, existing or not. What replaces a file replaces
    // that one, so that a link stays a link. A link to itself is returned as it is.
    virtual Path ResolveLinks(Path path) = 0;
};

// FolderOf: the folder that a file is in.
//   "books/al.ldif" -> "books",  "al.ldif" -> "."
[[nodiscard]] inline FileSystem::Path FolderOf(const FileSystem::Path& path) {
    return path.has_parent_path() ? path.parent_path() : FileSystem::Path(".");
}

}  // namespace orvik
