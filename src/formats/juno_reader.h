// Reads a Juno address book. Format: docs/formats/juno.md.

#pragma once

#include <string>
#include <string_view>

#include "formats/unread_entries.h"

namespace orvik {

// ReadJuno: the names and addresses of a Juno text as a list in the ASCII form; each "Email:" line
// ends an entry with CR LF, whatever the separator is.
//   "\r\nName:Al\r\nEmail:A1\r\nAlias:Al\r\n"  ->  "\"Al\" <A1>\r\n"
// left_out, if it is not null, gets what is not read.
[[nodiscard]] std::string ReadJuno(std::string_view juno, UnreadEntries* left_out = nullptr);

}  // namespace orvik
