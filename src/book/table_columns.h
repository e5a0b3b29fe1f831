// What a table shows of each record, in columns.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "book/address_book.h"

namespace orvik::book {

enum class Column : std::uint8_t { Name, Nickname, Addresses, Phones, Lists, Notes, Source };
inline constexpr std::size_t kColumns = 7;

// ColumnText: what stands in a column, on one line, values joined by ", "; not much more than most
// bytes of it. Lists are none of a record alone (memberships.h): empty. A record that came from no
// file has no source.
//   Source -> "book.ldif, line 12"
[[nodiscard]] std::string ColumnText(const Book& book,
                                     const Contact& contact,
                                     Column column,
                                     std::size_t most);

// AppendOnLine: text behind what there is, blanks in the place of its line breaks and tabs, up to
// most bytes in all; whole letters. False if not all of it was taken.
bool AppendOnLine(std::string_view text, std::size_t most, std::string& to);

}  // namespace orvik::book
