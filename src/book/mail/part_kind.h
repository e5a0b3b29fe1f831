// Which parts of a message hold text that people wrote.

#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace orvik::book {

enum class PartKind : std::uint8_t {
    Other,  // pictures, sounds, programs
    Text,
    Html,
    Folded,  // cards and calendars, whose lines are folded
    Header,  // the header of a message alone
    Message,
    Encrypted
};

// KindOfPart: by the type, and by the file's name where the type says nothing.
//   "text" "html" "" -> Html;  "application" "octet-stream" "letter.eml" -> Message
[[nodiscard]] PartKind KindOfPart(std::string_view type,
                                  std::string_view subtype,
                                  const std::function<std::string_view()>& file);

// Whether bytes can hold an address at all, in a set that has ASCII.
[[nodiscard]] bool MayHoldAddress(std::string_view bytes, PartKind kind);

}  // namespace orvik::book
