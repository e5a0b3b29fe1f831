// Writes a book as LDIF. Format: docs/formats/ldif.md.

#pragma once

#include <optional>
#include <string>

#include "book/address_book.h"
#include "book/ldif_sets.h"
#include "book/record_places.h"

namespace orvik::book {

// WriteLdif: the records of all contacts, in ASCII, with LF, in their order. Without a set records
// that nobody changed stay byte for byte, and others are written for Mozilla. What became of each
// value goes to the book's report. Places are filled where they are given; what stands between
// unchanged records is left out then.
[[nodiscard]] std::string WriteLdif(Book& book,
                                    std::optional<LdifAttributes> set,
                                    RecordPlaces* places = nullptr);

}  // namespace orvik::book
