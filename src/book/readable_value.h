// Values as a person reads them, where a program has notes and no field for them.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "book/address_book.h"

namespace orvik::book {

// Whether a value holds more than blanks and signs between values.
[[nodiscard]] bool HoldsSomething(std::string_view value);

// Whether a property says nothing about the person, or follows from what is written.
[[nodiscard]] bool IsHousekeeping(const Book& book, const Property& one);

// ReadableValue: a value as a person reads it.
//   ORG "Club;Boats" -> "Club, Boats"
[[nodiscard]] std::string ReadableValue(const Book& book, const Property& one);

// LabelOfValue: what a line with it begins with: "Job title".
[[nodiscard]] std::string LabelOfValue(const Book& book, const Property& one);

// Grouped: a number with a blank between its thousands, "1 204".
[[nodiscard]] std::string Grouped(std::size_t number);

}  // namespace orvik::book
