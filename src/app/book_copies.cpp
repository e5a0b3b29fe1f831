#include "app/book_copies.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <iomanip>
#include <memory>
#include <sstream>

#include "app/book_writer.h"
#include "app/file_calls.h"
#include "app/scope.h"
#include "platform/passing_name.h"

namespace orvik {
namespace {

using Path = FileSystem::Path;

constexpr std::string_view kCopyEnding = ".orvik-copy";
// The folder of the copies that cannot stand beside their books; empty if the user has none.
Path CopiesFolder(FileSystem& files) {
    const Path state = files.StateFolder();
    return state.empty() ? state : state / "orvik" / "copies";
}

// Books of many folders meet there: the name tells whose copy it is, and fits every file system.
//   "book.pml-1f2e3d4c5b6a7988.orvik-copy"
std::string CopyNameElsewhere(const Path& book) {
    constexpr std::size_t kReadable = 100;
    constexpr std::uint64_t kBasis = 14695981039346656037U;
    constexpr std::uint64_t kPrime = 1099511628211U;
    std::uint64_t hash = kBasis;
    for (const char c : book.string()) {
        hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    }
    std::ostringstream name;
    name << book.filename().string().substr(0, kReadable) << '-' << std::hex << std::setfill('0')
         << std::setw(16) << hash << kCopyEnding;
    return name.str();
}

// Whether a file is one of NAME, NAME1, NAME2 ...
bool IsNumbered(std::string_view file, std::string_view name) {
    return file.starts_with(name) &&
           file.find_first_not_of("0123456789", name.size()) == std::string_view::npos;
}

void AppendCopies(FileSystem& files, const Path& folder, const std::string& name, auto& copies) {
    std::vector<FolderEntry> entries;
    if (Persist([&] { return files.List(folder, name, entries); })) {
        return;
    }
    for (FolderEntry& entry : entries) {
        if (entry.Mine && entry.Status.Kind == FileKind::Regular && IsNumbered(entry.Name, name)) {
            copies.push_back({folder / entry.Name, entry.Status});
        }
    }
}

}  // namespace

std::error_code WriteCopy(FileSystem& files,
                          const Path& name,
                          std::string_view contents,
                          Path& taken) {
    // From its naming on the file is removed again, which must take no memory.
    const Path folder = FolderOf(name);
    taken = name;
    std::unique_ptr<OutputFile> file;
    std::error_code error = Persist([&] { return files.CreateUnseen(folder, true, file); });
    if (!error) {
        error = WriteSynced(*file, contents);
    }
    if (error) {
        return error;
    }
    error = std::make_error_code(std::errc::file_exists);
    for (int i = 0; error == std::errc::file_exists; ++i) {
        taken = name.string() + (i == 0 ? "" : std::to_string(i));
        error = Persist([&] { return file->TakeName(taken); });
    }
    if (error) {
        return error;
    }
    error = CloseSynced(*file);
    if (!error) {
        error = Persist([&] { return files.SyncFolder(folder); });
    }
    if (error) {
        files.Remove(taken);
    }
    return error;
}

std::string CopyNameBeside(const Path& book) {
    return book.filename().string().append(kCopyEnding);
}

std::error_code WriteCopyElsewhere(FileSystem& files,
                                   const Path& book,
                                   std::string_view contents,
                                   Path& taken) {
    const Path folder = CopiesFolder(files);
    if (folder.empty()) {
        return std::make_error_code(std::errc::permission_denied);
    }
    const std::error_code error = Persist([&] { return files.CreateFolders(folder); });
    if (error) {
        return error;
    }
    // Its lock is not taken, as nothing that is there is ever replaced.
    RemoveLeftovers(files, folder, false);
    return WriteCopy(files, folder / CopyNameElsewhere(book), contents, taken);
}

bool IsClearlyOld(const FileStatus& status) {
    constexpr std::chrono::hours kClearlyOld{1};
    const std::chrono::seconds written(status.Identity.Seconds);
    return std::chrono::system_clock::now().time_since_epoch() - written > kClearlyOld;
}

void RemoveLeftovers(FileSystem& files, const Path& folder, bool locked) {
    std::vector<FolderEntry> entries;
    // They hinder nobody, so that a folder which cannot be listed keeps them.
    if (Persist([&] { return files.List(folder, kPassingBeginning, entries); })) {
        return;
    }
    for (const FolderEntry& entry : entries) {
        if (entry.Mine && entry.Status.Kind == FileKind::Regular && IsPassingName(entry.Name) &&
            (locked || IsClearlyOld(entry.Status))) {
            files.Remove(folder / entry.Name);
        }
    }
}

std::vector<Path> LeftCopies(FileSystem& files, const std::string& book) {
    struct Copy {
        Path Name;
        FileStatus Status;
    };
    const Path path = files.ResolveLinks(book);
    std::vector<Copy> copies;
    AppendCopies(files, FolderOf(path), CopyNameBeside(path), copies);
    if (const Path folder = CopiesFolder(files); !folder.empty()) {
        AppendCopies(files, folder, CopyNameElsewhere(path), copies);
    }
    std::vector<Path> left;
    if (copies.empty()) {
        return left;
    }
    // Whoever saves keeps the folder's lock as long as the copy is needed.
    std::unique_ptr<FolderLock> lock;
    const std::error_code error = Persist(
        [&] { return files.Lock(FolderOf(path), std::chrono::milliseconds::zero(), lock); });
    if (error && error != std::errc::not_supported) {
        return left;
    }
    std::string contents;
    if (ReadWhole(files, path, contents)) {
        return left;
    }
    for (const Copy& copy : copies) {
        std::string old;
        if ((!lock && !IsClearlyOld(copy.Status)) || ReadWhole(files, copy.Name, old)) {
            continue;
        }
        if (old == contents) {
            files.Remove(copy.Name);
        } else {
            left.push_back(copy.Name);
        }
    }
    std::sort(left.begin(), left.end());
    return left;
}

void RestoreCopy(FileSystem& files, FileTalk& talk, const std::string& book, const Path& copy) {
    std::string contents;
    CheckFile(files, ReadWhole(files, copy, contents), copy);
    BookWriter writer(files, talk, book, {});
    writer.Lock();
    writer.PutBack(contents);
    files.Remove(copy);
}

}  // namespace orvik
