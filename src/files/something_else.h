// Knows the files that people take for an address book.

#pragma once

#include <string_view>

namespace orvik {

// PlainlySomethingElse: what a file is that begins as no address book does, empty for any other.
//   "BEGIN:VCARD\r\n..." -> "a vCard";  "From al@example.org Mon ...\nTo: ..." -> "a mail folder"
[[nodiscard]] std::string_view PlainlySomethingElse(std::string_view file);

}  // namespace orvik
