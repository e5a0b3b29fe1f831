// Writes a book as vCard 3.0 or 4.0. Format: docs/formats/vcard.md.

#pragma once

#include <cstdint>
#include <string>

#include "book/address_book.h"
#include "book/record_places.h"

namespace orvik::book {

// How a line says to which group it belongs: "item1.TEL:5", or "TEL;X-ORVIK-GROUP=item1:5" for
// programs that read nothing of the first. What labels a group has the first form in both.
enum class GroupForm : std::uint8_t { Prefix, Param };

// WriteVCard: the cards of all contacts, in UTF-8, in their order. A card that nobody changed and
// that is of this version stays byte for byte. What became of each value goes to the book's report.
// Places are filled where they are given; what stands between unchanged cards is left out then.
[[nodiscard]] std::string WriteVCard(Book& book,
                                     Dialect version,
                                     RecordPlaces* places = nullptr,
                                     GroupForm groups = GroupForm::Prefix);

}  // namespace orvik::book
