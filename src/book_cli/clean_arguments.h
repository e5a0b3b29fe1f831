// What orvik-book is told about duplicates, and about the order of what it writes.

#pragma once

#include <string>

#include "book_cli/book_arguments.h"

namespace orvik::book_cli {

class CleanOptions {
 public:
    void AddToDupes(CLI::App* verb);
    void AddToClean(CLI::App* verb);
    // --sort and --locale.
    void AddOrder(CLI::App* verb);

    // Puts what was given into the arguments, whose verb and files are known. Errors:
    // CLI::ValidationError for what does not go together.
    void Take(Arguments& arguments) const;

 private:
    void AddMerge(CLI::App* verb);
    void CheckFiles(const Arguments& arguments) const;

    std::string plan_;
    std::string merge_;
    std::string sort_ = "none";
    std::string locale_;
};

}  // namespace orvik::book_cli
