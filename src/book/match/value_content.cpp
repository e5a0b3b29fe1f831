#include "book/match/value_content.h"

#include <cstdint>

#include <unicode/uchar.h>

#include "book/match/folding.h"

namespace orvik::book {

std::pair<std::size_t, std::size_t> ContentOf(std::string_view value) {
    std::size_t letters = 0;
    std::size_t others = 0;
    for (std::size_t at = 0; at < value.size();) {
        const std::int32_t letter = NextLetter(value, at);
        if (letter >= 0 && u_isalnum(letter) != 0) {
            ++letters;
            others += letter >= 0x80 ? 1 : 0;
        }
    }
    return {letters, others};
}

bool SaysNothing(std::string_view value) {
    return value.find_first_not_of(" \t\r\n;,.-") == std::string_view::npos;
}

}  // namespace orvik::book
