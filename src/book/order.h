// The order of a book's records.

#pragma once

#include <cstdint>
#include <string>

#include "book/address_book.h"

namespace orvik::book {

enum class SortBy : std::uint8_t { None, Name, Family, Address, Domain };

// SortBook: by what is shown, by family and given name, by the first address, or by its domain and
// then the rest of it. Names stand as people of the locale expect, "de_DE" or "sv", addresses by
// their letters; records without what is sorted by come last. What is equal keeps its order.
// Errors: std::bad_alloc.
void SortBook(Book& book, SortBy by, const std::string& locale);

// Whether there are people of such a locale; "" and "C" are known, and sort as most do.
[[nodiscard]] bool IsLocale(const std::string& name);

}  // namespace orvik::book
