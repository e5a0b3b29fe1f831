// What nobody changed is not written anew.

#pragma once

#include <optional>
#include <string_view>

#include "book/address_book.h"

namespace orvik::book {

// The bytes of a record that can stand in a file of this dialect as they are.
[[nodiscard]] std::optional<std::string_view> UnchangedRecord(const Book& book,
                                                              const Contact& contact,
                                                              Dialect target);

// The bytes of the book's one source, if its contacts are all that was read from it, in their
// order, and each could stand in a file of this dialect as it is.
[[nodiscard]] std::optional<std::string_view> UnchangedFile(const Book& book, Dialect target);

// Counts all that a book holds as kept, for a file that stays as it is.
void CountAllKept(Book& book);

}  // namespace orvik::book
