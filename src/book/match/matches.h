// The records of a book that may be one person, in lines from sure to hardly.

#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/match/match_line.h"

namespace orvik::book {

struct Matches {
    // Sorted by tier, then by their first record.
    std::vector<MatchLine> Lines;
    // Of what was not looked at, as too many share it.
    std::vector<std::string> Notes;
    // How many records each tier would take away if all of its lines were merged.
    std::array<std::size_t, kTiers> Counts{};
    // Records that are contained in others, but have to be asked about; not among Counts.
    std::size_t AskedContained = 0;
};

// FindMatches: docs/book.md has the rules as a table. Only the first two tiers are to be merged,
// and with merges_agreeing the third one, too. Lists are looked for among lists that are the same.
// The same book gives the same lines. The book is told how far this is (Book::HowFar); what that
// throws ends it. n log n.
[[nodiscard]] Matches FindMatches(const Book& book,
                                  bool merges_agreeing,
                                  TakesPart who = TakesPart::Placed);

}  // namespace orvik::book
