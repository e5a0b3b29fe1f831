// File number 1: the one file that a command has open, and how files are read and written.
//
// Names are given as bytes. Failures are those of the classic file statements: 53 for a missing
// file, 76 for a missing folder, 70 for no permission, 61 for a full disk, 75 for a folder, an
// empty name and anything else that is no ordinary file.

#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace orvik {

struct FileCloser {
    void operator()(std::FILE* file) const noexcept;
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

class FileSlot {
 public:
    // Opens an existing file for reading. A file that was left open is closed first.
    void OpenForInput(const std::string& name);
    // The length in bytes. Errors: RunTimeError 52 if no file is open.
    [[nodiscard]] std::size_t Length() const;
    // Reads the next count bytes. Errors: 52 if no file is open, 62 if the file has fewer left.
    std::string Read(std::size_t count);
    // Closes the file; without one it does nothing.
    void Close();
    // Closes the file of a slot when it goes.
    class Closing {
     public:
        explicit Closing(FileSlot& slot) : slot_(slot) {}
        Closing(const Closing&) = delete;
        Closing& operator=(const Closing&) = delete;
        Closing(Closing&&) = delete;
        Closing& operator=(Closing&&) = delete;
        ~Closing() { slot_.Close(); }

     private:
        FileSlot& slot_;
    };

    // Replaces the contents of a file, or creates it. The new contents are written beside the old
    // file and renamed over it, so a failure leaves the file as it was.
    void Replace(const std::string& name, std::string_view contents);
    // Adds to the end of a file, or creates it. After a failure the file has its old length.
    void Append(const std::string& name, std::string_view contents);
    // Fails as adding to a file would, before the text is made. No file is left that was not there.
    void TryAppending(const std::string& name);
    // The contents of a file, empty where there is none.
    std::string ReadIfThere(const std::string& name);

 private:
    OpenFile file_;
    std::size_t length_ = 0;
};

}  // namespace orvik
