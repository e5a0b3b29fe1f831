// What a field is called that vCard has no name for, X-ORVIK-<FORMAT>-<field>, whatever letters its
// format calls it by.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "book/address_book.h"

namespace orvik::book {

// The parameter that keeps a header whose letters are more than a name may have.
inline constexpr std::string_view kHeaderParam = "X-ORVIK-HEADER";

// CarriedName: start and the letters, digits and hyphens of a field; one that has none is told by
// its number, which counts from 0.
//   "Hobby" -> "X-ORVIK-CSV-Hobby";  "Sch\u00FCler Nr." -> "X-ORVIK-CSV-Sch-ler-Nr"
[[nodiscard]] std::string CarriedName(std::string_view start,
                                      std::string_view field,
                                      std::size_t number);

// KeepHeader: the details of such a property: own is what its name has of the field, which is kept
// as it is where that differs.
std::uint32_t KeepHeader(Book& book, std::string_view own, std::string_view field);

// CarriedField: what its format calls a property that has such a name.
[[nodiscard]] std::string CarriedField(const Book& book,
                                       const Property& one,
                                       std::string_view start);

}  // namespace orvik::book
