// Whether short texts hold a word, many bytes at a time.

#pragma once

#include <string>
#include <string_view>

#include "app/byte_lanes.h"

namespace orvik::book {

class WordSearch {
 public:
    // Folded as the texts are, and not empty.
    explicit WordSearch(std::string word);

    // Time: linear, but for texts that have many beginnings of the word.
    [[nodiscard]] bool IsIn(std::string_view text) const;

 private:
    [[nodiscard]] bool BeginsIn(const char* block) const;

    std::string word_;
    RarePlaces places_;
    // The letters of these places.
    Lanes first_;
    Lanes second_;
};

}  // namespace orvik::book
