// What the cells of a column look like, whatever its header says.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::book {

//   "ada@example.org" and "Ada <ada@example.org>" -> true;  "me @ home" -> false
[[nodiscard]] bool IsAddressCell(std::string_view cell);
// AddressesIn: each address of a cell, parted by commas and semicolons that are not in quotes or in
// brackets; none if a piece is no address.
//   "a@x, b@x" -> "a@x", "b@x";  "Abbott, Ada <a@x>" -> none
[[nodiscard]] std::vector<std::string_view> AddressesIn(std::string_view cell);
// Whether a cell has nothing but addresses, and one at least.
[[nodiscard]] bool HasAddressesAlone(std::string_view cell);
//   "https://example.org", "www.example.org" -> true
[[nodiscard]] bool IsWebCell(std::string_view cell);
//   "+1 (555) 01-00" -> true;  "12345" and "2001-02-03" -> false
[[nodiscard]] bool IsPhoneCell(std::string_view cell);
// A phone by more than its digits, as other numbers have these, too.
//   "+1 555 0100", "0151 2345678" -> true;  "12345678" -> false
[[nodiscard]] bool IsDialledCell(std::string_view cell);
// A whole date with a year of four digits: "1980-04-12", "12.4.1980" -> true
[[nodiscard]] bool IsDateCell(std::string_view cell);
// What a postal code may be, three to five digits; and one of five.
[[nodiscard]] bool IsCodeCell(std::string_view cell);
[[nodiscard]] bool IsLongCodeCell(std::string_view cell);
[[nodiscard]] bool HasDigit(std::string_view cell);
// A number from 1 to 31.
[[nodiscard]] bool IsDayCell(std::string_view cell);
// Letters and what names have between them, no digit.
[[nodiscard]] bool IsNameCell(std::string_view cell);

// How the numbers of a date stand that does not begin with the year.
enum class DateOrder : std::uint8_t { MonthFirst, DayFirst };

// OrderOf: what the dates of a column say of their order: one with a number above 12, or with dots,
// tells it. otherwise is for a column where none does, and certain says which it was.
struct FoundOrder {
    DateOrder Order = DateOrder::DayFirst;
    bool Certain = true;  // also where there is no such date
};
[[nodiscard]] FoundOrder OrderOf(std::span<const std::string_view> cells, DateOrder otherwise);

// IsoDate: "4/12/1980" -> "1980-04-12" by MonthFirst;  "12.4.1980" -> "1980-04-12";
// "1980/4/12" -> "1980-04-12";  "--04-12" stays;  empty for anything else: a year of two digits
// does not tell its century.
[[nodiscard]] std::string IsoDate(std::string_view cell, DateOrder order);

// Whether a date holds nothing but zeros: "0/0/00", "00.00.00".
[[nodiscard]] bool IsNoDate(std::string_view cell);

}  // namespace orvik::book
