// How a text is a table: what parts its cells, and whether its first row names them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvik::book {

struct CsvForm {
    char Separator = ',';
    bool HasHeader = true;
    std::size_t From = 0;         // where the rows begin, behind "sep=;", comments, or no row
    std::string Evidence = {};    // "line 1 names columns"
    std::uint32_t FirstLine = 1;  // the number of the line at From
};

// CsvFormOf: the form of a text that is an address book by rows: its first rows have the same
// number of cells, and its first one has known words, or a column holds addresses. Nothing for any
// other.
//   "First Name;Last Name;E-mail Address\n..." -> by ";";  "Dear Ada,\nsee a@b, c\n" -> nothing
// One row without a header is enough where the file is called a table.
[[nodiscard]] std::optional<CsvForm> CsvFormOf(std::string_view text, bool called_table = false);

// LikelyCsvForm: the form of a text that is said to be one.
[[nodiscard]] CsvForm LikelyCsvForm(std::string_view text);

}  // namespace orvik::book
