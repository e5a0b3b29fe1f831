// Changes of single entries in a text in the Native form. A row is an entry as the lists show it:
// the address and the nickname of one line number, counted from 0.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvik {

// Why an entry cannot be kept in the working text.
enum class EntryFault {
    None,
    LineBreak,         // CR, LF or NUL in one of the two
    Quote,             // a double quote in one of the two
    AngleBracket,      // "<" or ">" in the address
    Separator,         // what ends an entry, in the address
    MiddleInAddress,   // "-nick-" in the address
    MiddleAsNickname,  // a nickname that is "-nick-"
};

// FaultOf: the first fault of an entry, None if it can be kept.
//   "a<b", "Al", "," -> AngleBracket
[[nodiscard]] EntryFault FaultOf(std::string_view address,
                                 std::string_view nickname,
                                 std::string_view separator);

// CountRows: the rows of a Native text, those of the longer block if one is longer.
//   "A1\r\nA2\r\n-nick-\r\nAl\r\n" -> 2
[[nodiscard]] std::size_t CountRows(std::string_view native);

// ReplaceRow: the text with another entry in this row, which must be there. A block that does not
// reach that far gets empty lines; all other lines stay as they are.
//   "A1\r\nA2\r\n-nick-\r\nAl\r\n\r\n", 1, "B", "Bo" -> "A1\r\nB\r\n-nick-\r\nAl\r\nBo\r\n"
[[nodiscard]] std::string ReplaceRow(std::string_view native,
                                     std::size_t row,
                                     std::string_view address,
                                     std::string_view nickname);

// DeleteRows: the text without these rows, which ascend; empty if no row is left.
//   "A1\r\nA2\r\n-nick-\r\nAl\r\nBo\r\n", {0} -> "A2\r\n-nick-\r\nBo\r\n"
[[nodiscard]] std::string DeleteRows(std::string_view native, const std::vector<std::size_t>& rows);

}  // namespace orvik
