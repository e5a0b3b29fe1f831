#include "reliability/counted_table.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include <gtest/gtest.h>

namespace orvik::test {
namespace {

constexpr const char* kMemory = "/dev/shm";

bool printing = false;

std::vector<std::string> CellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::size_t start = line.find('|');
    for (std::size_t end = line.find('|', start + 1); end != std::string::npos;
         end = line.find('|', start + 1)) {
        const std::string_view cell = std::string_view(line).substr(start + 1, end - start - 1);
        const std::size_t first = cell.find_first_not_of(' ');
        const std::size_t last = cell.find_last_not_of(' ');
        cells.emplace_back(first == std::string_view::npos ? ""
                                                           : cell.substr(first, last - first + 1));
        start = end;
    }
    return cells;
}

std::string Shown(const Counts& counts) {
    return counts.Runs == 0 ? "-"
                            : std::to_string(counts.Calls) + ": " + std::to_string(counts.Runs);
}

}  // namespace

CountedTable::CountedTable(const std::string& document, const std::string& heading, bool differs)
    : heading_(heading), differs_(differs) {
    std::ifstream file(document);
    if (!file) {
        throw std::runtime_error("cannot read " + document);
    }
    std::vector<std::string> columns;
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) {
            inside = line.ends_with("# " + heading);
        } else if (inside && line.starts_with('|') && !line.starts_with("|--")) {
            const std::vector<std::string> cells = CellsOf(line);
            if (columns.empty()) {
                columns = cells;
                continue;
            }
            for (std::size_t i = 1; i < std::min(cells.size(), columns.size()); ++i) {
                Counts counts;
                if (std::sscanf(cells[i].c_str(), "%zu: %zu", &counts.Calls, &counts.Runs) == 2) {
                    promised_[{cells[0], columns[i]}] = counts;
                }
            }
        }
    }
}

void CountedTable::Add(const std::string& row, const std::string& column, Counts made) {
    const Cell cell(row, column);
    made_[cell] = made;
    order_.push_back(cell);
    if (printing) {
        return;
    }
    const auto found = promised_.find(cell);
    const Counts promised = found == promised_.end() ? Counts() : found->second;
    EXPECT_TRUE(found != promised_.end() || made.Runs == 0)
        << heading_ << " does not tell of: " << row << ", " << column << ", " << Shown(made);
    EXPECT_GE(made.Calls, promised.Calls) << row << ", " << column;
    EXPECT_GE(made.Runs, promised.Runs) << row << ", " << column;
}

bool CountedTable::IsComplete() const {
    bool complete = true;
    for (const auto& [cell, counts] : promised_) {
        if (!made_.contains(cell)) {
            std::printf("nothing was run for %s: %s, %s\n",
                        heading_.c_str(),
                        cell.first.c_str(),
                        cell.second.c_str());
            complete = false;
        }
    }
    return complete;
}

void CountedTable::Print() const {
    std::vector<std::string> rows;
    std::vector<std::string> columns;
    const auto add = [](std::vector<std::string>& list, const std::string& name) {
        if (std::find(list.begin(), list.end(), name) == list.end()) {
            list.push_back(name);
        }
    };
    for (const auto& [row, column] : order_) {
        add(rows, row);
        add(columns, column);
    }
    std::printf("## %s\n\n| command |", heading_.c_str());
    for (const std::string& column : columns) {
        std::printf(" %s |", column.c_str());
    }
    std::printf("\n|---|");
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::printf("---|");
    }
    std::size_t runs = 0;
    for (const std::string& row : rows) {
        std::printf("\n| %s |", row.c_str());
        for (const std::string& column : columns) {
            const auto made = made_.find({row, column});
            Counts counts = made == made_.end() ? Counts() : made->second;
            runs += counts.Runs;
            if (differs_) {
                counts = {counts.Calls * 9 / 10, counts.Runs * 9 / 10};
            }
            std::printf(" %s |", Shown(counts).c_str());
        }
    }
    std::printf("\n\n%zu runs\n\n", runs);
}

int RunTests(int argc, char** argv, const std::vector<CountedTable*>& tables) {
    // Nothing of all these files is kept, so memory is disk enough.
    if (std::filesystem::is_directory(kMemory)) {
        setenv("TEST_TMPDIR", kMemory, 0);
    }
    testing::InitGoogleTest(&argc, argv);
    printing = argc > 1 && std::string_view(argv[1]) == "--table";
    const bool everything = testing::GTEST_FLAG(filter) == "*";

    int status = RUN_ALL_TESTS();
    for (const CountedTable* const table : tables) {
        if (printing) {
            table->Print();
        } else if (everything && !table->IsComplete()) {
            status = 1;
        }
    }
    return status;
}

}  // namespace orvik::test
