// What somebody surely meant who typed something around an e-mail address.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// SurelyMeant: the valid address in a text that is none: without blanks, "mailto:", brackets, a
// name and a comma around it, with a plain dot and @ for those of wide letters. Empty where that
// makes no valid address, and for one that is valid as it is.
//   " <Al@example.org>, " -> "Al@example.org";  "mailto:al@example.org" -> "al@example.org"
//   "al@@example.org" -> "";  "al@example.org" -> ""
[[nodiscard]] std::string SurelyMeant(std::string_view address);

}  // namespace orvik::book
