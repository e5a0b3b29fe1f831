// Records of which another one holds everything.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "book/match/keyed_book.h"
#include "book/match/match_line.h"

namespace orvik::book {

struct Containment {
    // By record: the one that holds everything of it and that nobody else's holds; itself where
    // there is none, or several.
    std::vector<std::uint32_t> Into;
    // Those of which two different records hold everything, or that are a phone alone: a person
    // has to say whose they are.
    std::vector<bool> IsAsked;
    std::vector<MatchLine> Lines;
    // Records that share each of their addresses, phones and names with very many others, who were
    // not all compared with them.
    std::size_t Crowded = 0;
};

// FindContained: of the compared records of a book; each has an address or a phone. n log n.
[[nodiscard]] Containment FindContained(const KeyedBook& book);

// Described: what a record is called, and its first address, for a line: Ada <ada@example.org>.
[[nodiscard]] std::string Described(const Book& book, std::size_t record);

}  // namespace orvik::book
