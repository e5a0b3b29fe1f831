// What became of a book's values, those of one kind and reason together.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "book/report.h"

namespace orvik::book {

struct RemarkGroup {
    What Kind = What::Lost;
    Reason Why = Reason::None;
    // Of what is carried alone: each field is a group.
    std::string_view Field;
    // By their numbers in the report; at least one.
    std::vector<std::uint32_t> Remarks;
};

// GroupRemarks: what was lost comes first, then what is doubtful, skipped and carried; groups of a
// kind and the remarks of a group stand as in the report. Other remarks are in none.
[[nodiscard]] std::vector<RemarkGroup> GroupRemarks(const Report& told);

}  // namespace orvik::book
