#include "store/recovery_store.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "app/book_copies.h"
#include "app/book_file.h"
#include "app/file_calls.h"
#include "app/run_time_error.h"
#include "platform/passing_name.h"

namespace orvik {
namespace {

using Path = FileSystem::Path;

constexpr const char* kRunning = "running";
constexpr const char* kBook = "book";
// Nobody else saves into an own folder.
constexpr std::chrono::milliseconds kShortWait{100};

std::string AnyName() {
    return PassingName({}).substr(kPassingBeginning.size());
}

// What cannot be looked at is not missing.
FileStatus Look(FileSystem& files, const Path& path) {
    FileStatus status;
    if (Persist([&] { return files.Status(path, status); })) {
        status.Kind = FileKind::Other;
    }
    return status;
}

// A copy is never a link, which could lead anywhere.
bool IsLink(FileSystem& files, const Path& book) {
    return files.ResolveLinks(book) != files.ResolveLinks(FolderOf(book)) / kBook;
}

// Creates the file that is locked, and locks it. Returns false if another program, which took the
// folder for a left one, was faster.
bool Lock(FileSystem& files, const Path& name, std::unique_ptr<FolderLock>& lock) {
    std::unique_ptr<OutputFile> file;
    const auto check = [&](std::error_code error) { CheckFile(files, error, name); };
    check(Persist([&] { return files.CreateUnseen(FolderOf(name), true, file); }));
    check(Persist([&] { return file->TakeName(name); }));
    check(file->Close());
    const std::error_code error =
        Persist([&] { return files.Lock(name, std::chrono::milliseconds::zero(), lock); });
    if (error == std::errc::device_or_resource_busy ||
        Look(files, name).Kind == FileKind::Missing) {
        lock.reset();
        return false;
    }
    if (error != std::errc::not_supported) {
        check(error);
    }
    return true;
}

// What is no copy may be of any length, and is not read.
bool BeginsAsCopy(FileSystem& files, const Path& name) {
    std::unique_ptr<InputFile> file;
    std::string bytes;
    return !Persist([&] { return files.OpenToRead(name, file); }) &&
           !ReadBytes(*file, kRecoveryBeginning.size(), bytes) && bytes == kRecoveryBeginning;
}

std::optional<RecoveryCopy> Read(FileSystem& files, const Path& name) {
    std::optional<RecoveryCopy> copy;
    TrapFailure(
        [&] {
            std::string bytes;
            const FileStatus status = Look(files, name);
            // A pipe would hang the program.
            if (status.Kind == FileKind::Regular && !IsLink(files, name) &&
                BeginsAsCopy(files, name) && !ReadWhole(files, name, bytes)) {
                copy = ReadRecoveryCopy(bytes);
            }
            if (copy && copy->Seconds == 0) {
                copy->Seconds = status.Identity.Seconds;
            }
        },
        [](const RunTimeError&) {});
    return copy;
}

}  // namespace

RecoveryStore::RecoveryStore(FileSystem& files, std::string_view folder)
    : files_(files), root_(files.StateFolder()) {
    if (!root_.empty()) {
        root_ = root_ / "orvik" / folder;
    }
}

RecoveryStore::~RecoveryStore() {
    const bool took_any = !own_.Folder.empty() || !aside_.empty();
    Leave(own_);
    for (auto& [number, own] : aside_) {
        Leave(own);
    }
    if (took_any) {
        files_.RemoveFolder(root_);
    }
}

void RecoveryStore::Keep(const RecoveryCopy& copy) {
    KeepIn(own_, copy);
}

void RecoveryStore::KeepIn(Own& own, const RecoveryCopy& copy) {
    if (root_.empty()) {
        throw RunTimeError(Failure::PathNotFound);
    }
    // Somebody may have tidied up.
    if (own.Folder.empty() || Look(files_, own.Folder / kRunning).Kind == FileKind::Missing) {
        TakeFolder(own);
    }
    const Path book = own.Folder / kBook;
    // Saving follows links.
    if (IsLink(files_, book) || Look(files_, book).Names > 1) {
        files_.Remove(book);
    }
    own.Keeps = true;
    FileTalk nobody;
    SaveFile(files_,
             nobody,
             book,
             false,
             [&](const auto& /*old*/) {
                 return LateText([&copy](const TakePiece& take) { GiveRecoveryCopy(copy, take); });
             },
             {.LongestWait = kShortWait, .OnlyMine = true});
}

void RecoveryStore::TakeFolder(Own& own) {
    constexpr int kMostTries = 5;
    own = {};
    for (int i = 0; i < kMostTries; ++i) {
        const Path folder = root_ / AnyName();
        const std::error_code error = Persist([&] { return files_.CreateFolders(folder); });
        if (error == std::errc::no_such_file_or_directory) {
            continue;  // a program that has ended has just tidied up
        }
        CheckFile(files_, error, folder);
        if (Lock(files_, folder / kRunning, own.Lock)) {
            own.Folder = folder;
            return;
        }
    }
    throw RunTimeError(Failure::PermissionDenied);
}

void RecoveryStore::Forget() {
    if (own_.Keeps) {
        const Path book = own_.Folder / kBook;
        own_.Keeps = Persist([&] { return files_.Remove(book); }) &&
                     Look(files_, book).Kind != FileKind::Missing;
    }
}

void RecoveryStore::SetAside(int number, const RecoveryCopy& copy) {
    if (!aside_.contains(number)) {
        aside_[number] = std::exchange(own_, {});
    }
    KeepIn(aside_[number], copy);
}

void RecoveryStore::TakeBack(int number) {
    const auto found = aside_.find(number);
    if (found != aside_.end()) {
        Forget();
        Leave(own_);
        own_ = std::move(found->second);
        aside_.erase(found);
    }
}

void RecoveryStore::LeaveAside(int number) {
    const auto found = aside_.find(number);
    if (found != aside_.end()) {
        Leave(found->second);
        aside_.erase(found);
    }
}

void RecoveryStore::ForgetAside() {
    for (auto& [number, own] : aside_) {
        if (!own.Folder.empty()) {
            RemoveFolder(own.Folder);
        }
    }
    aside_.clear();
}

void RecoveryStore::LeaveCopy() {
    if (own_.Keeps) {
        own_ = {};
    }
}

void RecoveryStore::Leave(Own& own) const {
    if (!own.Folder.empty() && !own.Keeps) {
        RemoveFolder(own.Folder);
    }
    own = {};
}

void RecoveryStore::ForEachEnded(const std::function<bool(Ended&)>& act) const {
    std::vector<FolderEntry> entries;
    if (root_.empty() || Persist([&] { return files_.List(root_, "", entries); })) {
        return;
    }
    for (const FolderEntry& entry : entries) {
        if (!entry.Mine || entry.Status.Kind != FileKind::Folder || entry.Name.starts_with('.')) {
            continue;
        }
        Ended ended{root_ / entry.Name, {}};
        std::unique_ptr<FolderLock> lock;
        const std::error_code error = Persist([&] {
            return files_.Lock(ended.Folder / kRunning, std::chrono::milliseconds::zero(), lock);
        });
        ended.Lock = std::move(lock);
        const FileStatus book = Look(files_, ended.Folder / kBook);
        // A program that is just starting has no file yet, and no copy.
        const bool unknown =
            error == std::errc::not_supported || error == std::errc::no_such_file_or_directory;
        const FileStatus& newest = book.Kind == FileKind::Missing ? entry.Status : book;
        if ((!error || (unknown && IsClearlyOld(newest))) && !act(ended)) {
            return;
        }
    }
}

std::vector<RecoveryStore::Left> RecoveryStore::LeftBooks() const {
    constexpr std::size_t kMost = 100;
    std::vector<Left> left;
    ForEachEnded([&](Ended& ended) {
        if (std::optional<RecoveryCopy> copy = Read(files_, ended.Folder / kBook)) {
            left.push_back({std::move(*copy), std::move(ended.Folder), std::move(ended.Lock)});
        } else if (Look(files_, ended.Folder / kBook).Kind == FileKind::Missing) {
            RemoveFolder(ended.Folder);
        }
        return left.size() < kMost;
    });
    std::stable_sort(left.begin(), left.end(), [](const Left& one, const Left& other) {
        return one.Copy.Seconds > other.Copy.Seconds;
    });
    return left;
}

void RecoveryStore::Remove(const Left& left) const {
    RemoveFolder(left.Folder);
}

void RecoveryStore::RemoveLeft() const {
    ForEachEnded([this](const Ended& ended) {
        RemoveFolder(ended.Folder);
        return true;
    });
    if (!root_.empty()) {
        files_.RemoveFolder(root_);
    }
}

// The lock's file goes behind the copy, which would else be anybody's.
void RecoveryStore::RemoveFolder(const Path& folder) const {
    files_.Remove(folder / kBook);
    RemoveLeftovers(files_, folder, true);
    files_.Remove(folder / kRunning);
    files_.RemoveFolder(folder);
}

}  // namespace orvik
