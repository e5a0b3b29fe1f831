// An entry of a plain list: an address, with or without a name, in each form that people write.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvik::book {

struct PlainEntry {
    std::string_view Name;  // without its quotes; empty for none
    std::string_view Address;
    bool Loose = false;  // parted by blanks alone
};

// PlainEntryOf: nothing for a text without an address, which has an at or stands in brackets or
// before a name in quotes.
//   '"Al" <A1>', 'Al <A1>', 'A1 "Al"', '<A1> Al', 'a1@b (Al)', 'a1@b Al' -> Al, A1
[[nodiscard]] std::optional<PlainEntry> PlainEntryOf(std::string_view text);

// JoinedEntryOf: what was one entry, whose name has a comma, before the window made two of it where
// commas part entries; nothing for two others.
//   '"Abbott" <>', '" <al@b.org>" < Al>' -> "Abbott, Al", al@b.org
struct JoinedEntry {
    std::string Name;
    std::string_view Address;
};
[[nodiscard]] std::optional<JoinedEntry> JoinedEntryOf(std::string_view text,
                                                       std::string_view next);

// IsQuotedEntry: whether a line is something in brackets, alone or behind a name in quotes, as
// lists of addresses have it and tables do not.
//   '"Abbott, Al" <al@b>', '<al@b>' -> true;  '"Al","Abbott" <al@b>' -> false
[[nodiscard]] bool IsQuotedEntry(std::string_view line);
// ListedEntryOf: the entry of a line that holds one as the window writes it, and nothing else. The
// address may be any text, and empty.
//   '"Al" <a1@b, c@d>' -> Al, a1@b, c@d;  '"Al" <>' -> Al, nothing;  '"Al" <A1>, "Bo" <A2>' -> none
[[nodiscard]] std::optional<PlainEntry> ListedEntryOf(std::string_view line);

// TakePlainEntry: the text up to the next comma or semicolon that ends an entry; rest moves behind
// it. A comma behind a text without an address is part of a name.
//   rest "Abbott, Al <a@b>, c@d" -> "Abbott, Al <a@b>", rest " c@d"
[[nodiscard]] std::string_view TakePlainEntry(std::string_view& rest);

}  // namespace orvik::book
