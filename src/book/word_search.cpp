#include "book/word_search.h"

#include <cstddef>
#include <cstring>
#include <utility>

namespace orvik::book {

WordSearch::WordSearch(std::string word)
    : word_(std::move(word)),
      places_(RarePlacesOf(word_)),
      first_(LanesOf(static_cast<unsigned char>(word_[places_.First]))),
      second_(LanesOf(static_cast<unsigned char>(word_[places_.Second]))) {}

// Whether the word begins at one of the first places of a text.
bool WordSearch::BeginsIn(const char* block) const {
    const Lanes differs =
        (LanesAt(block + places_.First) ^ first_) | (LanesAt(block + places_.Second) ^ second_);
    const auto marked = reinterpret_cast<Lanes>(differs == Lanes{});
    if (!IsAnyMarked(marked)) {
        return false;
    }
    for (std::size_t i = 0; i < kLanes; ++i) {
        if (marked[i] != 0 && std::memcmp(block + i, word_.data(), word_.size()) == 0) {
            return true;
        }
    }
    return false;
}

bool WordSearch::IsIn(std::string_view text) const {
    const std::size_t whole = kLanes + word_.size() - 1;
    if (text.size() < whole) {
        return text.find(word_) != std::string_view::npos;
    }
    const char* const last = text.data() + (text.size() - whole);
    for (const char* block = text.data(); block < last; block += kLanes) {
        if (BeginsIn(block)) {
            return true;
        }
    }
    // What is left, and some of what was seen.
    return BeginsIn(last);
}

}  // namespace orvik::book
