// What a plan means for the records of its sources, and which lines go together.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "book/address_book.h"
#include "book/match/match_line.h"
#include "book/match/plan.h"

namespace orvik::book {

// Records that become one; the first is kept, in its place.
using MergeGroups = std::vector<std::vector<std::uint32_t>>;

// GroupsOf: the lines that merge; a record in two of them joins both. Each group has its records in
// the order in which the lines name them.
[[nodiscard]] MergeGroups GroupsOf(std::span<const MatchLine> lines, std::size_t records);

struct CheckedPlan {
    MergeGroups Groups;
    // Each line of the plan with the numbers of its records, and its comment for a reason.
    std::vector<MatchLine> Lines;
    // By line: those of the plan, sources that are others by now, records that are not there or
    // twice in a line, people and lists that would become one, and what one line merges and another
    // one keeps apart.
    std::vector<PlanError> Errors;
};

// FindSources: a plan may have been made in another folder. Its sources that the book has not under
// their names, but under another one, get that: their bytes are the same.
void FindSources(Plan& plan, const Book& book);

// CheckPlan: of a plan that lacks no source. The book has read the plan's sources. n log n.
[[nodiscard]] CheckedPlan CheckPlan(const Plan& plan, const Book& book);

}  // namespace orvik::book
