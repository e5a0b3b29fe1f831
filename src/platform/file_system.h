// The files, as the commands see them: an abstract class, so that tests can stand a disk in for the
// real one that fills up or fails at any call. system_files.h has the real one.
//
// Paths and contents are bytes. Every function returns what went wrong, or an error code that is
// false; what it gives back besides that counts only then. A call that a signal interrupted returns
// errc::interrupted and may be made again. Nothing throws but for lack of memory.

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace orvik {

enum class FileKind { Missing, Regular, Folder, CharacterDevice, Other };

// What tells one state of one file from any other: which file it is, and when it was last written.
struct FileIdentity {
    std::uint64_t Device = 0;
    std::uint64_t Number = 0;
    std::uint64_t Length = 0;  // in bytes
    std::int64_t Seconds = 0;
    std::int64_t Nanoseconds = 0;
    bool operator==(const FileIdentity&) const = default;
};

struct FileStatus {
    FileKind Kind = FileKind::Missing;
    FileIdentity Identity;
    std::uint64_t Names = 0;  // how many hard links lead to it
    [[nodiscard]] std::uint64_t Length() const { return Identity.Length; }
};

// What a folder holds under a name, links not followed.
struct FolderEntry {
    std::string Name;
    FileStatus Status;
    bool Mine = false;  // it belongs to the user of this program
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

    virtual std::error_code Status(FileStatus& status) = 0;
    // Some of the next bytes, at most count of them; none at the end of the file.
    virtual std::error_code Read(std::size_t count, std::string& bytes) = 0;
    // The next bytes are the first ones again.
    virtual std::error_code Rewind() = 0;
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

    // Writes the first of the bytes, at least one; written says how many.
    virtual std::error_code Write(std::string_view bytes, std::size_t& written) = 0;
    // Cuts the file off.
    virtual std::error_code SetLength(std::uint64_t length) = 0;
    // Gives the file the owner, group, permissions and access list of another, and its user
    // attributes as far as they can be kept; all_kept says whether all could.
    virtual std::error_code TakeAttributesOf(InputFile& other, bool& all_kept) = 0;
    // Waits until what was written is on the disk.
    virtual std::error_code Sync() = 0;
    // Gives a file that was created beside another a name that no file has yet.
    virtual std::error_code TakeName(const std::filesystem::path& name) = 0;
    virtual std::error_code Close() = 0;
};

// The right to write into a folder, among all programs that ask for it; it goes with this, and with
// the process.
class FolderLock {
 public:
    FolderLock() = default;
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    FolderLock(FolderLock&&) = delete;
    FolderLock& operator=(FolderLock&&) = delete;
    virtual ~FolderLock() = default;
};

// As long as it lives a signal that asks the program to end is kept for later.
class EndHold {
 public:
    EndHold() = default;
    EndHold(const EndHold&) = delete;
    EndHold& operator=(const EndHold&) = delete;
    EndHold(EndHold&&) = delete;
    EndHold& operator=(EndHold&&) = delete;
    virtual ~EndHold() = default;
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
    // Opens a file that is there; its contents stay, and writing begins at its start.
    virtual std::error_code OpenToWrite(const Path& path, std::unique_ptr<OutputFile>& file) = 0;
    // Creates a file in a folder that nobody sees until it takes a name; it goes without one. It
    // has the user's default permissions, or none for anybody else.
    virtual std::error_code CreateUnseen(const Path& folder,
                                         bool only_mine,
                                         std::unique_ptr<OutputFile>& file) = 0;
    // Takes the place of a file that is there.
    virtual std::error_code Rename(const Path& from, const Path& to) = 0;
    virtual std::error_code Remove(const Path& path) = 0;
    // Waits until the names of a folder are on the disk.
    virtual std::error_code SyncFolder(const Path& folder) = 0;
    // Creates a folder, for nobody but the user, and those that it is in; one that is there already
    // is no error.
    virtual std::error_code CreateFolders(const Path& folder) = 0;
    // Removes a folder that holds nothing.
    virtual std::error_code RemoveFolder(const Path& folder) = 0;
    // Waits, at most so long, for the right to write into a folder, or into a file that has names
    // in several folders. Errors:
    // errc::device_or_resource_busy if another program keeps it; errc::not_supported where there
    // are no such rights.
    virtual std::error_code Lock(const Path& path,
                                 std::chrono::milliseconds longest,
                                 std::unique_ptr<FolderLock>& lock) = 0;
    // The program that keeps the right to write there, "orvik (process 4711)"; "another program"
    // where the system does not tell.
    virtual std::string LockKeeper(const Path& path) = 0;
    // What a folder holds under names that begin so, in no order.
    virtual std::error_code List(const Path& folder,
                                 std::string_view beginning,
                                 std::vector<FolderEntry>& entries) = 0;
    // Keeps the end that a signal asks for until what is begun is over.
    virtual std::unique_ptr<EndHold> HoldEnd() = 0;
    // The user's folder for what programs keep from one run to the next; empty if there is none.
    virtual Path StateFolder() = 0;
    // Whether two names stand for one file that is there, links followed.
    virtual bool IsSame(const Path& one, const Path& other) = 0;
    // The name of the file that a name stands for in the end, existing or not. What replaces a file
    // replaces that one, so that a link stays a link. A name stays as it is where the file has no
    // other, as one that was removed and is still open, and where links lead in a ring.
    virtual Path ResolveLinks(Path path) = 0;
};

// FolderOf: the folder that a file is in.
//   "books/al.ldif" -> "books",  "al.ldif" -> "."
[[nodiscard]] inline FileSystem::Path FolderOf(const FileSystem::Path& path) {
    return path.has_parent_path() ? path.parent_path() : FileSystem::Path(".");
}

}  // namespace orvik
