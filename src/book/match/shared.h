// People who share an address or a name, and whether they agree.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "book/match/contained.h"
#include "book/match/keyed_book.h"
#include "book/match/match_line.h"

namespace orvik::book {

struct Shared {
    std::vector<MatchLine> Lines;
    // Of addresses and names that very many have, who were not all compared.
    std::vector<std::string> Notes;
};

// FindShared: of the records that no other one holds and that are not asked about. merges_agreeing
// says that those are merged that all agree with each other. n log n.
[[nodiscard]] Shared FindShared(const KeyedBook& book,
                                const Containment& contained,
                                bool merges_agreeing);

}  // namespace orvik::book
