// Writes a book as vCard 3.0 or 4.0. Format: docs/formats/vcard.md.

#pragma once

#include <string>

#include "book/address_book.h"
#include "book/record_places.h"

namespace orvik::book {

// WriteVCard: the cards of all contacts, in UTF-8, in their order. A card that nobody changed and
// that is of this version stays byte for byte. What became of each value goes to the book's report.
// Places are filled where they are given; what stands between unchanged cards is left out then.
[[nodiscard]] std::string WriteVCard(Book& book, Dialect version, RecordPlaces* places = nullptr);

}  // namespace orvik::book
