// What options of several verbs have in common.

#pragma once

#include <string>

#include <CLI/CLI.hpp>

namespace orvik::book_cli {

// An option that takes one word.
CLI::Option* Single(CLI::Option* option);
// One that takes one word each time it is given.
CLI::Option* Repeated(CLI::Option* option);

// Why a name is none for a file, or for one that is written beside the book; empty if it is.
[[nodiscard]] std::string CheckName(const std::string& name);
[[nodiscard]] std::string CheckNoStream(const std::string& name);

}  // namespace orvik::book_cli
