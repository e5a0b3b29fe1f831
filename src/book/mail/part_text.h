// The text of a part of a message: its transfer encoding and its letters undone.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "book/charset_converter.h"

namespace orvik::book {

// How a part was written down, as far as its header says so in a way that is known.
enum class Transfer : std::uint8_t { Plain, Base64, QuotedPrintable };

// Untransferred: the bytes that a part stands for. Where base64 ends early, as behind a line that a
// mailing list has added, the rest is taken as it is; whole says that there was none.
[[nodiscard]] std::string Untransferred(std::string_view raw, Transfer transfer, bool& whole);

// Turns bytes of any character set into UTF-8.
class PartLetters {
 public:
    // The text of bytes; they stand in to where they change. charset is empty where nothing is
    // stated. known says whether anybody knows the set; else the bytes are taken for UTF-8 or
    // windows-1252.
    std::string_view Text(std::string_view bytes,
                          std::string_view charset,
                          std::string& to,
                          bool& known);

 private:
    CharsetConverter* Converter(std::string_view charset);

    std::unordered_map<std::string, std::optional<CharsetConverter>> converters_;
};

// Whether each @ of a text is a byte of its own, whatever the set.
[[nodiscard]] bool HasPlainAscii(std::string_view charset);

}  // namespace orvik::book
