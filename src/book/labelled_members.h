// The lists of a book as categories of their members, for programs that have lists in this way.

#pragma once

#include <vector>

#include "book/address_book.h"

namespace orvik::book {

// LabelMembers: each person is given the names of the lists that it is in, also by lists in lists,
// as CATEGORIES. The lists are taken out of the book and returned; what became of their fields is
// told. Linear.
std::vector<Contact> LabelMembers(Book& book);

}  // namespace orvik::book
