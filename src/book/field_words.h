// A property as a person reads it: what it is, and its value.

#pragma once

#include <cstddef>
#include <string>

#include "book/address_book.h"
#include "book/csv_kinds.h"

namespace orvik::book {

// FieldWords: what a property is. One that vCard has no name for is called what its own format
// calls it.
//   TEL;TYPE=work -> "Work phone";  TEL;TYPE=cell,pref -> "Mobile phone, preferred"
//   ADR;TYPE=home -> "Address, home";  X-ORVIK-LDIF-shoeSize -> "shoeSize"
[[nodiscard]] std::string FieldWords(const Book& book,
                                     const Property& one,
                                     const GroupLabels& labels);

// ShownValue: its value; most is about how many bytes are looked at, of a value of any length.
//   ADR ";;Pier 5;Oslo;;;" -> "Pier 5, Oslo";  PHOTO;ENCODING=b:... -> "12 345 bytes"
[[nodiscard]] std::string ShownValue(const Book& book, const Property& one, std::size_t most);

}  // namespace orvik::book
