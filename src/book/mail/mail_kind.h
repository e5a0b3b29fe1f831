// What a file is that may hold mail: its content decides, and .eml for what has no header.

#pragma once

#include <cstdint>
#include <string_view>

namespace orvik::book {

enum class MailKind : std::uint8_t { Folder, Message, Text, WideText, Binary };

// KindOfMail: by the beginning of a file, and its name.
//   "From al Thu Jan  1 10:00:00 1998\nFrom: ..." -> Folder;  "Subject: x\n..." -> Message
[[nodiscard]] MailKind KindOfMail(std::string_view beginning, std::string_view name);

// How many bytes KindOfMail looks at.
inline constexpr std::size_t kLookedAt = 64UL * 1024;

}  // namespace orvik::book
