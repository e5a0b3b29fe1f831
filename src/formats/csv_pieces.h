// Reads a comma-separated book of Internet Explorer / Outlook as it comes.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/unread_entries.h"

namespace orvik {

// The entries of a book as the list that they become by way of LDIF, and the lengths of their
// addresses, which NativeOfEntries needs.
struct ListedEntries {
    std::string List;
    std::vector<std::uint32_t> AddressLengths;
};

// Makes the list of a book, so that no more of it is in memory than a piece and a line. Some books
// have to be read as a whole: those that CsvToNative does not take, that hold no entry, lines that
// are very long, or nicknames or addresses that LDIF would not give back as they are.
class CsvReading {
 public:
    // left_out gets what is not read; it must outlive this. length is about that of the text.
    CsvReading(UnreadEntries& left_out, std::size_t length)
        : left_out_(left_out), length_(length) {}

    // Returns false for a book that has to be read as a whole. Then nothing more may be called.
    [[nodiscard]] bool Take(std::string_view piece);
    // The entries, with CR, when all of the text was taken; nothing for such a book.
    [[nodiscard]] std::optional<ListedEntries> Entries() &&;

 private:
    [[nodiscard]] bool TakeLines(std::string_view piece);
    // Reads the lines of a text that begin before limit and are ended. Returns where the next one
    // begins.
    std::size_t Read(std::string_view text, std::size_t limit, bool is_last);
    // Reserves memory for all entries when the first of them were made.
    void Reserve(std::size_t made, std::size_t read);

    UnreadEntries& left_out_;
    std::size_t length_;
    ListedEntries entries_;
    std::string made_;  // the entries that are made of a text, before they are part of the list
    std::string rest_;  // the beginning of a line
    bool is_behind_first_line_ = false;
    bool is_unusual_ = false;
};

}  // namespace orvik
