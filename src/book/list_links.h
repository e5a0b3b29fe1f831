// Who is in which list of a book, by numbers: millions of members fit into memory.

#pragma once

#include <cstdint>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

struct ListLink {
    static constexpr std::uint32_t kNobody = ~std::uint32_t{0};

    std::uint32_t List = 0;
    std::uint32_t Record = kNobody;  // the member; kNobody for one that is no record of the book
    // The value by which the list names the member: it stays where it is as long as the book.
    const char* Where = nullptr;
};

[[nodiscard]] bool HasLists(const Book& book);

// LinksOf: the members of all lists in their order, those left out on purpose aside. how_far may be
// empty; it may throw to end this.
[[nodiscard]] std::vector<ListLink> LinksOf(const Book& book, const Book::Progress& how_far);

}  // namespace orvik::book
