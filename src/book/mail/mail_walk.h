// Goes through folders for what may hold mail.

#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/file_system.h"

namespace orvik::book {

// What a walk leaves out.
enum class WalkNote : std::uint8_t {
    Failed,    // could not be read
    Link,      // leads elsewhere; only the names that the user gives are followed
    NoFile,    // a pipe, a socket or a device
    NoInput,   // one of these that the user named
    Unsent,    // in the folder of a Maildir where programs are still writing
    OfServer,  // what a mail server keeps beside the messages of a Maildir
    Trashed,   // a message that its name says is deleted
    Again      // the same file or folder as before
};

class MailWalk {
 public:
    struct File {
        const std::string& Path;
        // What is called the place of its people: its folder for a message of a Maildir.
        const std::string& Place;
        bool IsMessage;
        std::uint64_t Length;
    };
    struct Listener {
        std::function<void(const File& file)> Take;
        std::function<void(const std::string& path, WalkNote note, std::error_code error)> Tell;
    };

    // All must outlive the walk.
    MailWalk(FileSystem& files, Listener listener)
        : files_(files), listener_(std::move(listener)) {}

    // A file that is to be passed over wherever it is met.
    void Avoid(const std::string& path);
    // A file or folder with all that it holds, in the order of names. Each folder is gone through
    // once; a file that is a name of the user's own is read there alone.
    void Walk(const std::vector<std::string>& paths);

 private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>;
    struct Pending {
        std::string Path;
        std::string Maildir;  // the one that it is the cur or new of
    };

    void WalkFolder(const std::string& path);
    void TakeEntry(const Pending& folder, const FolderEntry& entry);

    FileSystem& files_;
    Listener listener_;
    std::set<Identity> seen_;
    std::set<Identity> named_;
};

}  // namespace orvik::book
