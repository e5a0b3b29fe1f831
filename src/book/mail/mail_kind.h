// What a file is that may hold mail: its content decides, and .eml and .emlx for what has no header
// there.

#pragma once

#include <cstdint>
#include <string_view>

namespace orvik::book {

enum class MailKind : std::uint8_t { Folder, Message, Text, WideText, Binary };

// KindOfMail: by the beginning of a file, and its name.
//   "From al Thu Jan  1 10:00:00 1998\nFrom: ..." -> Folder;  "Subject: x\n..." -> Message
[[nodiscard]] MailKind KindOfMail(std::string_view beginning, std::string_view name);

// EmlxMessage: the message in a file of Apple Mail: its length stands in the line before it, and
// behind it what the program knows of it. Empty for any other text.
//   "5\nFrom:<?xml ..." -> "From:"
[[nodiscard]] std::string_view EmlxMessage(std::string_view text);

// How many bytes KindOfMail looks at.
inline constexpr std::size_t kLookedAt = 64UL * 1024;

}  // namespace orvik::book
