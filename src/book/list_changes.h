// What becomes of lists whose members change or go.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "book/address_book.h"
#include "book/memberships.h"

namespace orvik::book {

// A list as it is to be.
struct ListChange {
    std::uint32_t List = 0;
    Contact After;
};

// ListsAfterChange: the lists that name a contact of the book by what it has no more, an address or
// a name, when it becomes after. The numbers of memberships are those of the contacts.
[[nodiscard]] std::vector<ListChange> ListsAfterChange(Book& book,
                                                       const Memberships& memberships,
                                                       std::uint32_t record,
                                                       const Contact& after);

// ListsAfterRemoval: the lists that stay without the members that go.
[[nodiscard]] std::vector<ListChange> ListsAfterRemoval(Book& book,
                                                        const Memberships& memberships,
                                                        std::span<const std::uint32_t> records);

// NewReference: what a list says for a member that has changed; nothing if it names it still, or if
// there is nothing to name it by.
//   "mailto:al@old.example" -> "mailto:al@new.example"
[[nodiscard]] std::optional<std::string> NewReference(const Book& book,
                                                      const Property& member,
                                                      const Contact& before,
                                                      const Contact& after);

}  // namespace orvik::book
