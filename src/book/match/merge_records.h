// Several records become one that has all that each of them had.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/match/plan_check.h"

namespace orvik::book {

// A value that another one took the place of; it is carried under a name of its own.
struct MergeNote {
    std::string_view Field;  // "FN"
    std::string_view Value;  // lives as long as the book
    std::string_view Winner;
    NameId Target = 0;
    bool IsSpelling = false;  // only written in another way
    Origin From;              // of the record that had it
    Origin FromWinner;        // of the one that had the other value
};

// NamesTheRecord: whether a value is the record's own name in a program, and none of the person.
[[nodiscard]] bool NamesTheRecord(const MergeNote& note);

// A record by its number before and after the merging.
struct Renumbered {
    std::uint32_t Before = 0;
    std::uint32_t After = 0;
};

// A record that is part of another one now.
struct MergedAway {
    Origin From;
    Origin FromKept;
    std::uint32_t Record = 0;  // its number before
};

struct Merged {
    std::vector<MergedAway> Gone;
    // Those that are there, and other ones than before: they took others, or are lists of them.
    std::vector<Renumbered> Changed;
    std::vector<MergeNote> Notes;
    std::size_t Lost = 0;  // values of the merged records that are nowhere; counted afterwards
};

// MergeRecords: the first record of each group takes what the others hold more, and they go. Of
// what a person has once, the value with more letters and digits wins, else the first one; of
// spellings too. The other one is carried as X-ORVIK-MERGED-NAME. UIDs: the first one's. The time
// of the last saving and the program that wrote it stay the first one's. Lists that named a record
// that went name the one that it is part of, each member once. The book is told how far this is
// (Book::HowFar); what that throws ends it, and the book is of no use then. Time is linear.
[[nodiscard]] Merged MergeRecords(Book& book, const MergeGroups& groups);

}  // namespace orvik::book
