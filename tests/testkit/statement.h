// One line of a scenario, and the error for a line that cannot be run.

#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::testkit {

// What is wrong with a scenario: a malformed statement, or an answer that nobody queued.
class ScenarioError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

// SplitWords: the words of a statement. A word in double quotes may hold anything, with the escapes
// \r \n \t \" \\ and \xHH.
//   work ASCII "a \"b\""  ->  "work", "ASCII", "a \"b\""
// Errors: ScenarioError.
[[nodiscard]] std::vector<std::string> SplitWords(std::string_view line);

// The rest of a line behind its first count words, as it stands.
[[nodiscard]] std::string_view BehindWords(std::string_view line, std::size_t count);

// A whole number without sign. Errors: ScenarioError.
[[nodiscard]] std::size_t ParseCount(std::string_view word);

// A decimal number. Errors: ScenarioError.
[[nodiscard]] double ParseNumber(std::string_view word);

}  // namespace orvik::testkit
