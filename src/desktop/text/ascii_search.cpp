#include "desktop/text/ascii_search.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

namespace orvik {
namespace {

using Byte = unsigned char;

// Compilers have it for all processors, and most of these do it at once.
constexpr std::size_t kLanes = 16;
using Lanes [[gnu::vector_size(kLanes)]] = Byte;

Lanes LanesAt(const char* place) {
    Lanes lanes;
    std::memcpy(&lanes, place, sizeof lanes);
    return lanes;
}

Lanes LanesOf(Byte byte) {
    std::array<Byte, kLanes> all{};
    all.fill(byte);
    Lanes lanes;
    std::memcpy(&lanes, all.data(), sizeof lanes);
    return lanes;
}

// Whether a lane has its highest bit.
bool IsAnyMarked(Lanes lanes) {
    constexpr std::uint64_t kMarks = 0x8080808080808080;
    std::array<std::uint64_t, 2> halves{};
    std::memcpy(halves.data(), &lanes, sizeof lanes);
    return ((halves[0] | halves[1]) & kMarks) != 0;
}

bool IsCased(char letter) {
    return letter >= 'a' && letter <= 'z';
}

// The bit in which a letter's capital differs, none for what has no case.
Byte CaseOf(char letter) {
    return IsCased(letter) ? 'a' - 'A' : 0;
}

}  // namespace

AsciiSearch::AsciiSearch(std::string letters)
    : letters_(std::move(letters)),
      rarest_(rarestBut(letters_.size())),
      second_(letters_.size() > 1 ? rarestBut(rarest_) : rarest_) {}

// The place of the letter that books have least of, but for the one at another place.
std::size_t AsciiSearch::rarestBut(std::size_t other) const {
    constexpr std::string_view kCommonFirst = "eaoinrlstm.@dhcugpb kvfywj-0123456789zxq";
    std::size_t rarest = other == 0 ? 1 : 0;
    for (std::size_t i = 0; i < letters_.size(); ++i) {
        if (i != other && kCommonFirst.find(letters_[i]) > kCommonFirst.find(letters_[rarest])) {
            rarest = i;
        }
    }
    return rarest;
}

bool AsciiSearch::isAt(const char* place) const {
    return std::equal(letters_.begin(), letters_.end(), place, [](char wanted, char letter) {
        const auto lower = static_cast<char>(static_cast<Byte>(letter) | CaseOf(wanted));
        return lower == wanted;
    });
}

std::size_t AsciiSearch::next(std::string_view text, std::size_t from) const {
    const Lanes rarest = LanesOf(static_cast<Byte>(letters_[rarest_]));
    const Lanes rarest_case = LanesOf(CaseOf(letters_[rarest_]));
    const Lanes second = LanesOf(static_cast<Byte>(letters_[second_]));
    const Lanes second_case = LanesOf(CaseOf(letters_[second_]));
    const std::size_t reach = letters_.size() - 1;
    const char* const start = text.data();
    for (; from + kLanes + reach <= text.size(); from += kLanes) {
        const char* const block = start + from;
        const Lanes differs = ((LanesAt(block + rarest_) | rarest_case) ^ rarest) |
                              ((LanesAt(block + second_) | second_case) ^ second);
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
