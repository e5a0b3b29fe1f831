// Texts as they are compared where case and blanks do not matter.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// FoldedWords: one form of Unicode without case, each row of blanks one blank, none around it, and
// without quotes. Empty for more than 400 bytes: nothing that is looked for is longer, and letters
// with very many accents take long.
//   " \"Ada\"  ABBOTT" -> "ada abbott"
[[nodiscard]] std::string FoldedWords(std::string_view text);

}  // namespace orvik::book
