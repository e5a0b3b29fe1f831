// What a person says of records that may be one person, line by line, while a book is shown: what
// is to be merged by it, and the plan that says the same.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "book/address_book.h"
#include "book/match/match_line.h"
#include "book/match/matches.h"
#include "book/match/plan_check.h"

namespace orvik::book {

enum class Decision : std::uint8_t {
    Open,   // nothing is said: a plan says what was proposed
    Merge,  // to be merged
    Keep,   // several people
    Later   // to be asked again
};

struct DecidedLine {
    MatchLine Match;  // records by their numbers in the book that is shown
    Decision Said = Decision::Open;
    // The merging that made them one, 0 for none; it may have been undone.
    std::uint32_t MergedIn = 0;
    // When they were compared, all of the records were as their files have them.
    bool IsAsRead = true;
};
using DecidedLines = std::vector<DecidedLine>;

// How a line stands to the book: its records are as they were when they were compared, or became
// one by it, or are other ones.
enum class Standing : std::uint8_t { Holds, Done, Old };
// Of a line by its number.
using StandingOf = std::function<Standing(std::uint32_t line)>;

// WithFound: the lines that were found in a copy of some records, which has them by numbers. What
// was said before of the same records is said of them, too. Lines that are done stay, and those
// that a plan alone has named; what was said of other records is forgotten.
[[nodiscard]] DecidedLines WithFound(Matches& found,
                                     const Book& copy,
                                     std::span<const std::uint32_t> numbers,
                                     const DecidedLines& before,
                                     const StandingOf& standing);

// IsSure: whether a line is merged without asking: its records are the same, or one holds all of
// the others. A person may have said otherwise.
[[nodiscard]] bool IsSure(const DecidedLine& line);

struct ChosenGroups {
    MergeGroups Groups;
    std::vector<std::uint32_t> Lines;  // those of the chosen that are done by them
    // Lines that were left out, as they would join what another one keeps apart.
    std::size_t KeptApart = 0;
};

// ChosenGroups: what becomes one if these lines are merged, of a book of so many records. n log n.
[[nodiscard]] ChosenGroups GroupsOfChosen(const DecidedLines& lines,
                                          std::span<const std::uint32_t> chosen,
                                          std::size_t records);

struct DecidedPlan {
    std::string Text;
    // Lines that have no place in it: the files do not hold their records as they are here.
    std::size_t LeftOut = 0;
};

// PlanOf: the plan of all lines that are not old. The book has all of its records, also those that
// went. Without decisions it is PlanText of what was found.
[[nodiscard]] DecidedPlan PlanOf(const Book& book,
                                 const DecidedLines& lines,
                                 const std::vector<std::string>& notes,
                                 const StandingOf& standing);

// TakePlan: says of the lines what a checked plan says of the same records; adds those that are in
// the plan alone. Returns how many were left out, as some of their records went or are not as their
// files have them. The book has all of its records, of which those are left that are there.
[[nodiscard]] std::size_t TakePlan(const CheckedPlan& plan,
                                   const Book& book,
                                   const std::vector<bool>& is_there,
                                   DecidedLines& lines);

}  // namespace orvik::book
