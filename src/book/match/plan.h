// A plan of what is to be done about duplicates: a text that a person can edit.
//
//   # source FILE SHA-256
//   merge|ask|keep  FILE:LINE FILE:LINE...  # TIER: reason
//
// LINE is the one on which a record begins. A file's name that has blanks, quotes, colons, number
// signs, control letters or bytes that are no UTF-8 stands in quotes, with \" \\ and \xNN in it.
// What follows a number sign, and empty lines, say nothing.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/match/match_line.h"
#include "book/match/matches.h"

namespace orvik::book {

// PlanText: the plan of what was found. The same book gives the same bytes.
[[nodiscard]] std::string PlanText(const Book& book, const Matches& found);

// SourceLine, NoteLine: what a plan says of a source, and of what was not compared; with their
// ends.
[[nodiscard]] std::string SourceLine(const Source& source);
[[nodiscard]] std::string NoteLine(std::string_view note);

// PlanLine: the line of a plan, with its end.
[[nodiscard]] std::string PlanLine(const Book& book, const MatchLine& line);

// QuotedName: a file's name as it stands in a plan.
//   "a.vcf" -> a.vcf;  "my book.vcf" -> "my book.vcf" with quotes
[[nodiscard]] std::string QuotedName(std::string_view name);

// Sha256: 64 digits of base 16.
[[nodiscard]] std::string Sha256(std::string_view bytes);

struct PlanSource {
    std::string Name;
    std::string Sum;
    std::size_t Line = 0;  // of the plan, from 1
};

struct PlanPlace {
    std::string File;
    std::uint32_t Line = 0;
};

struct PlannedLine {
    Action Do = Action::Keep;
    std::vector<PlanPlace> Places;
    std::size_t Line = 0;
    std::string Comment = {};  // what stands behind the number sign: it says nothing
};

struct PlanError {
    std::size_t Line = 0;
    std::string Text;
};

struct Plan {
    std::vector<PlanSource> Sources;
    std::vector<PlannedLine> Lines;
    std::vector<PlanError> Errors;  // the lines that are none; nothing is to be done then
    bool LacksSource = false;       // one of these should have named a source
};

// ParsePlan: any bytes, in linear time.
[[nodiscard]] Plan ParsePlan(std::string_view text);

}  // namespace orvik::book
