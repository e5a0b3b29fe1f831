// What orvik-book find is asked for.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "book/mail/mail_findings.h"

namespace orvik::book_cli {

struct FindArguments {
    bool HeadersOnly = false;
    bool NoReply = false;
    // How often a person must have been seen.
    std::size_t Least = 1;
    // The beginning of a day in UTC; kNoTime for all mail.
    book::MailTime Since = book::kNoTime;
    // The user's own addresses.
    std::vector<std::string> Mine;
};

// The options of the verb; what they were given goes to the arguments, the names of files and
// folders to paths.
void AddFindOptions(CLI::App& verb, std::vector<std::string>& paths, FindArguments& arguments);

// What stands behind --me may be paths that were meant to be looked through: these have no @, or a
// folder before it.
void SortOutMine(std::vector<std::string>& paths, FindArguments& arguments);

}  // namespace orvik::book_cli
