// File number 1: the one file that a command has open. A command that opens or writes a file closes
// the one that was left open. Failures are those of book_file.h.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "app/book_file.h"
#include "platform/file_system.h"

namespace orvik {

class FileSlot {
 public:
    // files must outlive the slot.
    explicit FileSlot(FileSystem& files) : files_(files) {}

    // Opens an existing file for reading.
    void OpenForInput(const std::string& name);
    // The length in bytes. Errors: RunTimeError 52 if no file is open.
    [[nodiscard]] std::size_t Length() const;
    // Reads the next count bytes. Errors: 52 if no file is open, 62 if the file has fewer left.
    std::string Read(std::size_t count);
    // Closes the file; without one it does nothing.
    void Close();

    // These write a file as book_file.h does.
    void Replace(const std::string& name, std::string_view contents);
    void Append(const std::string& name, std::string_view contents);
    bool Rewrite(const std::string& name, const orvik::Rewrite& rewrite);
    void TryWriting(const std::string& name);

 private:
    void CheckOpen() const;

    FileSystem& files_;
    std::unique_ptr<InputFile> file_;
    FileSystem::Path path_;
    std::size_t length_ = 0;
};

}  // namespace orvik
