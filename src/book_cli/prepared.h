// A book as it is going to be written: made in memory, with what becomes of its values, before any
// file is touched.

#pragma once

#include <string>
#include <vector>

#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "book_cli/inputs.h"
#include "book_cli/written.h"

namespace orvik::book_cli {

struct Prepared {
    Written Whole;
    // The files of a book that is split.
    std::vector<FilePart> Parts = {};
    // Why nothing may be written; empty if it may be.
    std::string Refused = {};
    // What the program does not keep for one user.
    std::string TooMuch = {};
};

// Prepare: writes a book as the arguments ask, whose form is chosen. What became of each value, and
// what the program does not take, goes to its report; what is refused is not looked at further.
[[nodiscard]] Prepared Prepare(const Arguments& chosen, Loaded& loaded, Console& console);

}  // namespace orvik::book_cli
