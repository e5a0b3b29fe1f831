#include "desktop/text/ascii_search.h"

#include <algorithm>
#include <utility>

namespace orvik {
namespace {

using Byte = unsigned char;

bool IsCased(char letter) {
    return letter >= 'a' && letter <= 'z';
}

// The bit in which a letter's capital differs, none for what has no case.
Byte CaseOf(char letter) {
    return IsCased(letter) ? 'a' - 'A' : 0;
}

}  // namespace

AsciiSearch::AsciiSearch(std::string letters)
    : letters_(std::move(letters)), places_(RarePlacesOf(letters_)) {}

bool AsciiSearch::isAt(const char* place) const {
    return std::equal(letters_.begin(), letters_.end(), place, [](char wanted, char letter) {
        const auto lower = static_cast<char>(static_cast<Byte>(letter) | CaseOf(wanted));
        return lower == wanted;
    });
}

std::size_t AsciiSearch::next(std::string_view text, std::size_t from) const {
    const Lanes rarest = LanesOf(static_cast<Byte>(letters_[places_.First]));
    const Lanes rarest_case = LanesOf(CaseOf(letters_[places_.First]));
    const Lanes second = LanesOf(static_cast<Byte>(letters_[places_.Second]));
    const Lanes second_case = LanesOf(CaseOf(letters_[places_.Second]));
    const std::size_t reach = letters_.size() - 1;
    const char* const start = text.data();
    for (; from + kLanes + reach <= text.size(); from += kLanes) {
        const char* const block = start + from;
        const Lanes differs = ((LanesAt(block + places_.First) | rarest_case) ^ rarest) |
                              ((LanesAt(block + places_.Second) | second_case) ^ second);
        const Lanes marked = LanesAt(block) | reinterpret_cast<Lanes>(differs == Lanes{});
        if (!IsAnyMarked(marked)) {
            continue;
        }
        for (std::size_t i = 0; i < kLanes; ++i) {
            if (marked[i] >= kFirstForeign && (IsForeign(block[i]) || isAt(block + i))) {
                return from + i;
            }
        }
    }
    for (; from < text.size(); ++from) {
        if (IsForeign(start[from]) || (from + reach < text.size() && isAt(start + from))) {
            return from;
        }
    }
    return text.size();
}

}  // namespace orvik
