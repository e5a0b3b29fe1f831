// The order of a book's records.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

enum class SortBy : std::uint8_t {
    None,
    Name,
    Family,
    Address,
    Domain,
    Nickname,
    Phone,
    Note,
    Source  // file by file, line by line
};

// How an order is made.
struct Sorting {
    std::string Locale = {};  // "de_DE"; whose people read names
    bool IsDescending = false;
    Book::Progress HowFar = {};  // of the contacts
};
// OrderOf: the numbers of the contacts in their order. Names, nicknames and notes stand as people
// of the locale expect, by the first of a kind, addresses and phones by their letters; records
// without what is sorted by come last in either direction. What is equal keeps its order.
// Errors: std::bad_alloc, and what HowFar throws.
[[nodiscard]] std::vector<std::uint32_t> OrderOf(const Book& book, SortBy by, const Sorting& how);

// The same by texts that are no values of the contacts: text appends that of a number.
using SortText = std::function<void(std::uint32_t contact, std::string& text)>;
[[nodiscard]] std::vector<std::uint32_t> OrderOf(const Book& book,
                                                 const SortText& text,
                                                 const Sorting& how);

// SortBook: by what is shown, by family and given name, by the first address, or by its domain and
// then the rest of it; as OrderOf. Errors: std::bad_alloc.
void SortBook(Book& book, SortBy by, const std::string& locale);

// Whether there are people of such a locale; "" and "C" are known, and sort as most do.
[[nodiscard]] bool IsLocale(const std::string& name);

}  // namespace orvik::book
