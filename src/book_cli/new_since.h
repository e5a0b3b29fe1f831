// Leaving out whom an older book has.

#pragma once

#include <vector>

#include "book/address_book.h"

namespace orvik::book_cli {

// LeaveOutKnown: takes the contacts that an older book has (KnownIn) out of a book, and returns
// them. Lists that stay keep such members by their addresses.
[[nodiscard]] std::vector<book::Contact> LeaveOutKnown(const book::Book& older, book::Book& book);

}  // namespace orvik::book_cli
