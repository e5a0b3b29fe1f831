// What there is to say, quietly, about the text that a book was read from: a book keeps an address
// and a nickname of each entry, and the programs that wrote it kept more.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvik {

// How many attributes, of how many entries, a reader left out.
struct Unread {
    std::size_t Attributes = 0;
    std::size_t Entries = 0;

    friend bool operator==(const Unread&, const Unread&) = default;
};

struct ReadingNote {
    Unread LeftOut;
    // What the text is instead of an address book, "a vCard"; empty where nothing says so.
    std::string_view LooksLike;

    // Of a book that another one was joined to: says what was left out of both.
    void Join(const ReadingNote& other);

    // The note as lines, without a line break at the end; empty if there is nothing to say.
    //   "3 attributes of 2 entries were not read"
    [[nodiscard]] std::string Text() const;
};

}  // namespace orvik
