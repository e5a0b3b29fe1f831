// Adds a Netscape 3.x address book to another. Format: docs/formats/netscape3-html.md.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvik {

// MergeNetscape3: the entries of a book that Orvik wrote behind the last entry of an older book.
// The older book is cut one character behind its last "<DD>", in any case.
//   "...<DD>\r\n</DL><p>", "<!DOCTYPE..."  ->  "...<DD>\r" + CR LF + the new book less its header
// Nothing is returned if the older book has no "<DD>" with a character behind it.
[[nodiscard]] std::optional<std::string> MergeNetscape3(std::string_view old_book,
                                                        std::string_view new_book);

// MergeDropsText: whether a merge leaves out more of the older book than its end: line ends, blanks
// and "</DL><p>", in any case.
//   "...<DD>\r\n</DL><p>\r\n" -> false,  "...<DD>a friend\r\n</DL><p>" -> true
[[nodiscard]] bool MergeDropsText(std::string_view old_book);

}  // namespace orvik
