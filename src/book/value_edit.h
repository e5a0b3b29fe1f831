// One value of a record as a text that somebody changes, and the fields of a record with such a
// change.

#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

// EditableText: what there is to change in a value; nothing where it is more than one text, or
// bytes, or where a parameter says the same once more.
//   EMAIL "al@@x" -> "al@@x";  MEMBER "mailto:al@x" -> "al@x";  MEMBER;VALUE=text "Al\, Bo" -> "Al,
//   Bo";  ADR -> nothing
[[nodiscard]] std::optional<std::string> EditableText(const Book& book, const Property& one);

// ValueOfText: the value of the same property for another text.
//   MEMBER "mailto:al@x", "bo@x" -> "mailto:bo@x"
[[nodiscard]] std::string ValueOfText(const Book& book, const Property& one, std::string_view text);

// FieldOfRemark: which field of a record a remark about it is about, by its value; nothing where
// the remark is about none, or about one that is not there any more.
[[nodiscard]] std::optional<std::size_t> FieldOfRemark(const Contact& contact,
                                                       const Remark& remark);

// The fields of a contact with another value for one of them, which must live as long as the book;
// and without some of them.
[[nodiscard]] std::vector<Property> FieldsWith(const Contact& contact,
                                               std::size_t field,
                                               std::string_view value);
[[nodiscard]] std::vector<Property> FieldsWithout(const Contact& contact,
                                                  const std::set<std::size_t>& fields);

}  // namespace orvik::book
