// Writes the working text as a Juno address book. Format: docs/formats/juno.md.

#pragma once

#include <string>
#include <string_view>

#include "formats/progress.h"

namespace orvik {

// WriteJuno: a block of lines for each entry of a Native text, behind two empty lines.
//   "A1\r\n-nick-\r\nAl\r\n", "\r"  ->
//       "\r\n\r\nType:Entry\r\nName:Al\r\nEmail:A1\r\nAlias:Al\r\n"
// An address ends at the separator, not at the line break, so with a comma the text is one CR LF
// unless an address holds a comma. Progress counts the characters of the address block.
[[nodiscard]] std::string WriteJuno(std::string_view native,
                                    std::string_view separator,
                                    Progress& progress);

}  // namespace orvik
