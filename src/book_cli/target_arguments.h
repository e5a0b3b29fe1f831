// What orvik-book is told about the book that it writes.

#pragma once

#include <optional>
#include <string>

#include "book_cli/book_arguments.h"

namespace orvik::book_cli {

class TargetOptions {
 public:
    // -o and what says how the file is written. Both must outlive this.
    void AddTo(CLI::App& verb, Arguments& arguments);

    // Puts what was given into the arguments, whose verb is known. Errors: CLI::ValidationError for
    // what does not go together.
    void Take(Arguments& arguments) const;

 private:
    void TakeForm(const Program& program, Arguments& arguments) const;
    void TakeFormat(Arguments& arguments) const;
    [[nodiscard]] std::optional<book::LdifAttributes> AskedSet() const;

    std::string version_;
    std::string set_;
    std::string program_;
    std::string most_;
};

}  // namespace orvik::book_cli
