// File number 1: the one file that a command has open. A command that opens or writes a file closes
// the one that was left open. Failures are those of file_calls.h.

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "app/book_file.h"
#include "platform/file_system.h"
#include "platform/file_talk.h"

namespace orvik {

class FileSlot {
 public:
    // Both must outlive the slot. The user is offered the copies that interrupted savings have left
    // of a book before it is opened or written, and told of a book that another program changed.
    FileSlot(FileSystem& files, FileTalk& talk) : files_(files), talk_(talk) {}

    // Opens an existing file for reading.
    void OpenForInput(const std::string& name);
    // The length in bytes. Errors: RunTimeError 52 if no file is open.
    [[nodiscard]] std::size_t Length() const;
    // Reads the next count bytes. Errors: 52 if no file is open, 62 if the file has fewer left.
    std::string Read(std::size_t count);
    // Gives the file piece by piece. Where take returns false it ends, and does so as well. Errors:
    // the same, when some were given.
    using TakeOrStop = std::function<bool(std::string_view piece)>;
    bool ReadPieces(const TakeOrStop& take);
    // The next bytes are the first ones again. Errors: 52 if no file is open, and those of the
    // file.
    void Rewind();
    // Closes the file; without one it does nothing.
    void Close();

    // These write a file as book_file.h does.
    void Replace(const std::string& name, LateText contents);
    void Append(const std::string& name, std::string_view contents);
    bool Rewrite(const std::string& name, const orvik::Rewrite& rewrite);
    void TryWriting(const std::string& name);

    // Whether a file that was opened or written is another one now, or has been written to since.
    [[nodiscard]] bool HasChanged(const std::string& name) const;

 private:
    void CheckOpen() const;
    void OfferCopies(const std::string& name);
    bool Save(const std::string& name, bool wants_old, const orvik::Rewrite& rewrite);

    FileSystem& files_;
    FileTalk& talk_;
    std::unique_ptr<InputFile> file_;
    FileSystem::Path path_;
    std::size_t length_ = 0;
    // What each file was when it was opened or written last.
    std::map<FileSystem::Path, FileIdentity> known_;
    // The copies that the user did not want to decide on now.
    std::set<FileSystem::Path> put_off_;
};

}  // namespace orvik
