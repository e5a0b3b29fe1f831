// The tables of docs/reliability.md: how many runs there were at least.

#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace orvik::test {

// How many calls a command makes, and in how many runs one of them failed.
struct Counts {
    std::size_t Calls = 0;
    std::size_t Runs = 0;
};

// The table under one heading. Its first column names the command; a cell of another column is
// "CALLS: RUNS", or "-" where there is nothing to try.
class CountedTable {
 public:
    // Reads the table of the document, which may have none there yet. What differs a little between
    // compilers is written down to nine tenths. Errors: std::runtime_error without the document.
    CountedTable(const std::string& document, const std::string& heading, bool differs = false);

    // A test made these runs: expects no fewer than the table promises.
    void Add(const std::string& row, const std::string& column, Counts made);
    // Whether no cell was left out; prints those that were.
    [[nodiscard]] bool IsComplete() const;
    // Prints the table as it would be with what was added.
    void Print() const;

 private:
    using Cell = std::pair<std::string, std::string>;

    std::string heading_;
    bool differs_;
    std::map<Cell, Counts> promised_;
    std::map<Cell, Counts> made_;
    std::vector<Cell> order_;
};

// Runs the tests of a program that fills tables: with --table it prints them instead of comparing.
// Returns the exit status.
int RunTests(int argc, char** argv, const std::vector<CountedTable*>& tables);

}  // namespace orvik::test
