// Text in one of the forms of Unicode, by ICU.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvik::book {

enum class UnicodeForm : std::uint8_t {
    Composed,    // NFC: letters and the marks above them are one, where there is one
    Decomposed,  // NFD: they are two
    Folded       // NFKC without case: what looks alike is the same
};

// InForm: a UTF-8 text of less than 2 GiB; the text itself where ICU cannot do it.
//   "o" U+0308, Composed -> U+00F6
[[nodiscard]] std::string InForm(UnicodeForm form, std::string_view text);

}  // namespace orvik::book
