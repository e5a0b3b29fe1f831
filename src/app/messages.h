// Texts that several commands show.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// The program's title and the default title of its boxes.
inline constexpr std::string_view kTitle = "Orvik";

inline constexpr std::string_view kSupportAddress = "support@orvik.example";

// #USR&001: no text where text is needed. opening is what the command says before "occured".
//   TextNonexistant("An Error type") -> "An Error type #USR&001 occured: \"Text Nonexistant\"..."
[[nodiscard]] std::string TextNonexistant(std::string_view opening);

// #USR&002: a file that is not of the format that its reader knows.
[[nodiscard]] std::string UnknownFormat();

// #USR&003: more text than the text box takes.
[[nodiscard]] std::string TooMuchText();

}  // namespace orvik
