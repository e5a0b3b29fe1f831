// Reads the comma-separated books of Internet Explorer / Outlook and of WordPerfect 8. Format:
// docs/formats/csv.md.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "formats/unread_entries.h"

namespace orvik {

// Both skip the first line, take a nickname and an address from each line that follows, and return
// the Native form. A comma ends a column, also inside quotes. A line with too few columns takes the
// missing ones from the lines that follow. Nothing is returned if the text ends inside a column.
// left_out, if it is not null, gets what is not read.

// CsvToNative: nickname from column 1, address from column 2, quotes kept, of at least 16 columns.
[[nodiscard]] std::optional<std::string> CsvToNative(std::string_view csv,
                                                     UnreadEntries* left_out = nullptr);

// WordPerfectToNative: nickname from column 2, address from column 6, quotes dropped, of at least 7
// columns.
[[nodiscard]] std::optional<std::string> WordPerfectToNative(std::string_view csv,
                                                             UnreadEntries* left_out = nullptr);

}  // namespace orvik
