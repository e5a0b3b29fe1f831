// A command on a file in one state, as the parameter of a test.

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "reliability/commands.h"

namespace orvik::test {

// What stands where a command reads or writes.
enum class FileState { Missing, Existing, Linked, ClosedFolder };

[[nodiscard]] std::string_view NameOf(FileState state);

struct Trial {
    const FileCommand* command;
    FileState state;
};

// The commands in all these states.
[[nodiscard]] std::vector<Trial> TrialsOf(const std::vector<FileCommand>& commands,
                                          std::initializer_list<FileState> states);

[[nodiscard]] std::string NameOfTrial(const testing::TestParamInfo<Trial>& info);

}  // namespace orvik::test
