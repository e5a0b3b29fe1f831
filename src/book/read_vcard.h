// Reads vCard 2.1, 3.0 and 4.0 into a book, as programs write them. Format: docs/formats/vcard.md.

#pragma once

#include <cstdint>

#include "book/address_book.h"
#include "book/charset.h"

namespace orvik::book {

// ReadVCard: adds the cards of a source to its book, and what was odd about them to its report.
// Nothing that a card names is opened. Time is linear.
void ReadVCard(Book& book, std::uint32_t file, Charset& charset);

}  // namespace orvik::book
