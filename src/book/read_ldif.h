// Reads LDIF into a book: RFC 2849, and what programs make of it. Format: docs/formats/ldif.md.

#pragma once

#include <cstdint>

#include "book/address_book.h"
#include "book/charset.h"

namespace orvik::book {

// ReadLdif: adds the records of a source to its book, and what was odd about them to its report.
// Values in files or on the network are named, never opened. Time is linear.
void ReadLdif(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book
