// A postal address as lines of text.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "book/old/fitting.h"

namespace orvik::book {

// AppendTextLines: appends the lines of a text that hold something.
void AppendTextLines(std::string_view text, std::vector<std::string>& lines);

// TakePostLines: takes ADR as the lines that people write on a letter, the street first.
//   ";;1 River Road,Oxbridge;;;;" -> "1 River Road", "Oxbridge"
[[nodiscard]] std::vector<std::string> TakePostLines(Fitting& entry, const Property& post);

}  // namespace orvik::book
