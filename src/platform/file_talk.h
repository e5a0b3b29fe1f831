// What whoever reads and saves files tells and asks the user besides failures.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// What becomes of a copy that an interrupted saving has left.
enum class CopyAnswer {
    NotNow,   // both files stay, and it is asked again
    Restore,  // the copy takes the book's place
    Keep,     // the book stays, and the copy goes
};

// As it stands here there is nobody to talk to.
class FileTalk {
 public:
    FileTalk() = default;
    FileTalk(const FileTalk&) = delete;
    FileTalk& operator=(const FileTalk&) = delete;
    FileTalk(FileTalk&&) = delete;
    FileTalk& operator=(FileTalk&&) = delete;
    virtual ~FileTalk() = default;

    // Tells something quietly.
    virtual void Note(std::string_view /*text*/) {}
    // Tells at once what the program waits for; it is over when the command is.
    virtual void Waits(std::string_view /*text*/) {}
    // Asks what to do with a copy of a book, both given by their names.
    virtual CopyAnswer OfferCopy(const std::string& /*book*/, const std::string& /*copy*/) {
        return CopyAnswer::NotNow;
    }
};

}  // namespace orvik
