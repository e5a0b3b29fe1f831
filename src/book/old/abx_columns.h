// The columns of address books of WordPerfect: by tags of their own, by words, or by their place.
// Format: docs/formats/wordperfect-abx.md.

#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "book/csv_columns.h"
#include "book/csv_form.h"

namespace orvik::book {

inline constexpr std::string_view kCarriedFromAbx = "X-ORVIK-ABX-";

// Whether a table begins with a cell that says so.
//   ":::TAGMAP:::0FFE0003:***,3001001E:Name" -> true
[[nodiscard]] bool IsTagged(std::string_view text);

// AbxFormOf: how such a text, or any other one, is a table: the header tells what parts its cells,
// as rows may have few of them.
[[nodiscard]] CsvForm AbxFormOf(std::string_view text);

struct AbxColumns {
    CsvColumns Columns;
    // What rows are told by in a tagged table: the columns of their kind, the name, the firm, and
    // of the two sorts of addresses.
    std::size_t Kind = kNone;
    std::size_t Name = kNone;
    std::size_t Firm = kNone;
    std::size_t Smtp = kNone;
    std::size_t Mail = kNone;

    static constexpr std::size_t kNone = CsvColumn::kNone;
};

// AbxColumnsOf: by tags; without them by words as any table; where there are no known words either,
// the second column is the name, and the sixth one the address.
[[nodiscard]] AbxColumns AbxColumnsOf(const CsvTop& top, std::span<const CsvMapping> asked);

}  // namespace orvik::book
