// The lines of a file around a place, as they stand there.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/record_origins.h"

namespace orvik::book {

struct ExcerptLine {
    std::uint32_t Number = 0;
    std::string Text;  // UTF-8, a long line cut
    bool IsCut = false;
};

struct Excerpt {
    std::vector<ExcerptLine> Lines;
    bool IsCut = false;  // there are more
};

// What is wanted of a file: so many lines from the first one on, and so many before and behind
// them.
struct ExcerptPlace {
    std::uint32_t File = 0;
    std::uint32_t Line = 1;
    std::uint32_t Lines = 1;
    std::uint32_t Around = 0;
};

// ExcerptOf: at most a few hundred lines. other is the set of what is not UTF-8 in the file. The
// records tell where lines stand, so that not all of a file is looked at.
[[nodiscard]] Excerpt ExcerptOf(const Book& book,
                                const RecordOrigins& records,
                                const ExcerptPlace& place,
                                const std::string& other);

}  // namespace orvik::book
