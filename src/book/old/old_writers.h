// The old formats that can be written.

#pragma once

#include <span>
#include <string>
#include <string_view>

#include "book/address_book.h"

namespace orvik::book {

struct OldWriter {
    Dialect Form = Dialect::None;
    std::string_view Title;   // "Netscape 3 HTML, windows-1252"
    std::string_view Ending;  // ".htm"; empty for one whose files have no ending of their own
    std::string_view OtherEnding;
    bool HoldsLists = false;
    bool HoldsNotes = false;
    std::string (*Write)(Book& book) = nullptr;
};

[[nodiscard]] std::span<const OldWriter> OldWriters();

// Null for any other format.
[[nodiscard]] const OldWriter* OldWriterOf(Dialect form);

// OldWriterFor: the writer that the ending of a file's name asks for; null for none.
[[nodiscard]] const OldWriter* OldWriterFor(std::string_view file);

}  // namespace orvik::book
