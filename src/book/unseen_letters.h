// Letters that a person does not see, or that were lost.

#pragma once

#include <string_view>

#include "book/address_flaw.h"

namespace orvik::book {

// UnseenLetters: LostLetter for a text with U+FFFD, else HiddenLetter for one with a letter that
// has no ink, ASCII aside, else None. The text is UTF-8.
//   "a\xE2\x80\x8B" "l" -> HiddenLetter, which is U+200B;  "al" -> None
[[nodiscard]] Flaw UnseenLetters(std::string_view text);

}  // namespace orvik::book
