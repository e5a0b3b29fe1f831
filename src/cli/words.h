// The arguments of a program of the command line, and what is told about them.

#pragma once

#include <ostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/exit_status.h"

namespace orvik::cli {

// The arguments, where an option with an empty value, "--open=", has it as an argument of its own:
// the parser would take the next argument for it.
class Words {
 public:
    Words(int argc, const char* const* argv);

    [[nodiscard]] int Count() const { return static_cast<int>(pointers_.size()); }
    [[nodiscard]] const char* const* Pointers() const { return pointers_.data(); }

 private:
    std::vector<std::string> words_;
    std::vector<const char*> pointers_;
};

// What is told of a mistake; what was given wrongly is quoted.
[[nodiscard]] std::string UsageMessage(const CLI::App* app, const CLI::Error& error);

// Tells an error of the parser, which help and version are too, and returns the status to end with.
// Errors: std::bad_alloc.
[[nodiscard]] ExitStatus Explain(const CLI::App& app,
                                 const CLI::ParseError& error,
                                 std::ostream& out,
                                 std::ostream& err);

}  // namespace orvik::cli
