// The books that were opened or saved last, in a file that only its user can read, and in the list
// that all programs of the desktop share.
//
// What cannot be written is forgotten: nobody is asked about a list of names.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace orvik {

class RecentBooks {
 public:
    // Nothing is kept in files.
    RecentBooks() = default;
    // The list of this program and the desktop's (XBEL). files must outlive the list.
    RecentBooks(FileSystem& files, std::string own, std::string shared);

    // orvik/books in the user's folder for states, and recently-used.xbel.
    [[nodiscard]] static RecentBooks OfUser(FileSystem& files);

    static constexpr std::size_t kMost = 10;

    // Absolute names, the last one first. The file is read anew: another program may have opened a
    // book.
    [[nodiscard]] std::vector<std::string> Books();
    // Puts a book before the others. A name that is not absolute is no book to come back to.
    void Add(const std::string& book);
    // Empties both lists; of the desktop's only what this program has put there goes.
    void Clear();

    // Whether books are remembered at all. Switching it off empties the lists.
    [[nodiscard]] bool Remembers();
    void SetRemembers(bool remembers);

 private:
    void Read();
    void Parse(const std::string& text);
    [[nodiscard]] std::string Lines() const;
    // Changes the list as it is in the file; no other program's change comes between.
    void Change(const std::function<void()>& change);
    void ClearShared() const;

    FileSystem* files_ = nullptr;
    std::string own_;
    std::string shared_;
    std::vector<std::string> books_;
    bool remembers_ = true;
};

}  // namespace orvik
