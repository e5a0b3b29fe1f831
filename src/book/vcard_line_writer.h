// Writes the lines of cards.

#pragma once

#include <string>
#include <string_view>

#include "book/record.h"

namespace orvik::book {

// AppendFolded: appends a line with CR LF, in pieces of at most 75 bytes, each further one behind
// CR LF and a blank. No letter is cut.
void AppendFolded(std::string_view line, std::string& to);

// AppendParam: appends ";NAME=VALUE", in quotes where it must be. Returns false if 3.0 could not
// hold the value as it is: a quote became an apostrophe, a line break a blank.
[[nodiscard]] bool AppendParam(Dialect version,
                               std::string_view name,
                               std::string_view value,
                               std::string& to);

}  // namespace orvik::book
