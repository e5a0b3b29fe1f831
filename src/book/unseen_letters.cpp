#include "book/unseen_letters.h"

#include <cstdint>

#include <unicode/uchar.h>

#include "app/encoding.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

// Blanks, controls, and what only says how its neighbours look.
bool IsHidden(char32_t letter) {
    constexpr std::uint32_t kNoInk =
        U_GC_CC_MASK | U_GC_CF_MASK | U_GC_ZS_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    const auto code = static_cast<UChar32>(letter);
    return (U_GET_GC_MASK(code) & kNoInk) != 0 ||
           u_hasBinaryProperty(code, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

}  // namespace

Flaw UnseenLetters(std::string_view text) {
    constexpr char32_t kReplacement = 0xFFFD;
    Flaw found = Flaw::None;
    for (text.remove_prefix(AsciiLength(text)); !text.empty();
         text.remove_prefix(AsciiLength(text))) {
        const Utf8Letter letter = FirstLetter(text);
        if (letter.Code == kReplacement) {
            return Flaw::LostLetter;
        }
        found = IsHidden(letter.Code) ? Flaw::HiddenLetter : found;
        text.remove_prefix(letter.Length);
    }
    return found;
}

}  // namespace orvik::book
