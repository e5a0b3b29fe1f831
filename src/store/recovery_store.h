// The copies of books that nobody has saved, in the user's folder for states:
//
//   orvik/recovery/0123456789abcdef/running    whose lock the running program keeps
//   orvik/recovery/0123456789abcdef/book       the copy (files/recovery_copy.h)
//
// Those of the Book window are in orvik/book-recovery, so that neither takes the other's.
//
// A running program has a folder for the open book, and one for each book that another took the
// place of before it was saved. One whose lock is free is of a program that has ended. A copy that
// is damaged, or of a later version, stays where it is and is offered to nobody.

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "files/recovery_copy.h"
#include "platform/file_system.h"

namespace orvik {

class RecoveryStore {
 public:
    using Path = FileSystem::Path;

    static constexpr std::string_view kFolder = "recovery";

    // Where files has no folder for states nothing is kept. files must outlive the store.
    explicit RecoveryStore(FileSystem& files, std::string_view folder = kFolder);
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;
    RecoveryStore(RecoveryStore&&) = delete;
    RecoveryStore& operator=(RecoveryStore&&) = delete;
    // What was kept stays; without anything no folder does.
    ~RecoveryStore();

    // Puts a copy of the open book in the place of the last one, and waits until it is on the disk.
    // Errors: those of file_calls.h; then the last one stays.
    void Keep(const RecoveryCopy& copy);
    // Removes the open book's copy, if there is one.
    void Forget();

    // The open book gave way to another: its copy is set aside under a number, which is given once,
    // and becomes this one. Errors: as Keep; then what was kept is set aside all the same, and it
    // may be called again.
    void SetAside(int number, const RecoveryCopy& copy);
    // Makes a copy that was set aside the open book's, in the place of that.
    void TakeBack(int number);
    // Another program may take the copy from now on.
    void LeaveAside(int number);
    // Removes all that was set aside.
    void ForgetAside();

    // A copy that an ended program has left. As long as this lives no other program takes it.
    struct Left {
        RecoveryCopy Copy;
        Path Folder;
        std::shared_ptr<FolderLock> Lock;
    };
    // From now on another program may take the open book's copy; the next one is put elsewhere.
    void LeaveCopy();

    // The newest first, and no more than a hundred: each keeps a file open. These may be called
    // while another thread keeps and forgets.
    [[nodiscard]] std::vector<Left> LeftBooks() const;
    void Remove(const Left& left) const;
    // Removes what all ended programs have left, whatever it is. That of running ones stays.
    void RemoveLeft() const;

 private:
    // A folder of an ended program.
    struct Ended {
        Path Folder;
        std::shared_ptr<FolderLock> Lock;
    };
    // A folder of this program, locked; empty until something is kept there.
    struct Own {
        Path Folder;
        std::unique_ptr<FolderLock> Lock;
        bool Keeps = false;
    };
    void KeepIn(Own& own, const RecoveryCopy& copy);
    void TakeFolder(Own& own);
    // What is kept there stays; an empty folder goes.
    void Leave(Own& own) const;
    // One after the other, so that thousands of them do not take all files that may be open; act
    // returns whether it wants another one.
    void ForEachEnded(const std::function<bool(Ended&)>& act) const;
    void RemoveFolder(const Path& folder) const;

    FileSystem& files_;
    Path root_;
    Own own_;
    std::map<int, Own> aside_;
};

}  // namespace orvik
