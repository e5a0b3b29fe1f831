// What the readers leave out: they take an address and a nickname of each entry, and most books
// hold more. What counts: docs/formats/unread.md.

#pragma once

#include <string_view>

#include "app/reading_note.h"
#include "formats/endings.h"

namespace orvik {

// CountUnread: counts the attributes in a file that its reader has no place for, and the entries
// that have such: phones, notes, second addresses. What the nickname or the address says as well
// does not count, nor what a program keeps for itself, so a book that Orvik wrote has none.
//   "dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\ncn: Al\r\n"  ->  1 attribute of 1 entry
// A comma-separated file that its reader does not take has none.
[[nodiscard]] Unread CountUnread(Format format, std::string_view file);

// CountUnreadOfAliases: the same for a file of alias lines: notes, and what stands behind the first
// address of an alias.
[[nodiscard]] Unread CountUnreadOfAliases(std::string_view file);

}  // namespace orvik
