#include "store/kept_file.h"

#include <chrono>
#include <cstddef>
#include <memory>

#include "app/file_calls.h"
#include "app/run_time_error.h"

namespace orvik {
namespace {

// So long a change waits for another program's.
constexpr std::chrono::milliseconds kAMoment{500};

}  // namespace

std::optional<std::string> ReadKept(FileSystem& files, const std::string& name) {
    std::optional<std::string> contents;
    TrapFailure(
        [&] {
            // A pipe would hang the program.
            if (StatusOf(files, name).Kind != FileKind::Regular) {
                return;
            }
            std::unique_ptr<InputFile> file;
            FileStatus status;
            std::string bytes;
            const auto check = [&](std::error_code error) { CheckFile(files, error, name); };
            check(Persist([&] { return files.OpenToRead(name, file); }));
            check(Persist([&] { return file->Status(status); }));
            check(ReadBytes(*file, static_cast<std::size_t>(status.Length()), bytes));
            contents = std::move(bytes);
        },
        [](const RunTimeError&) {});
    return contents;
}

void RewriteKept(FileSystem& files, const std::string& name, const Rewrite& rewrite) {
    TrapFailure(
        [&] {
            const FileKind kind = StatusOf(files, name).Kind;
            if (kind != FileKind::Regular && kind != FileKind::Missing) {
                return;
            }
            const FileSystem::Path folder = FolderOf(name);
            CheckFile(files, Persist([&] { return files.CreateFolders(folder); }), folder);
            RewriteFile(files, name, rewrite, {.LongestWait = kAMoment, .OnlyMine = true});
        },
        [](const RunTimeError&) {});
}

}  // namespace orvik
