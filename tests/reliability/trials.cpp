#include "reliability/trials.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace orvik::test {

std::string_view NameOf(FileState state) {
    constexpr std::array<std::string_view, 4> kNames = {
        "new file", "existing file", "hard-linked file", "closed folder"};
    return kNames.at(static_cast<std::size_t>(state));
}

std::vector<Trial> TrialsOf(const std::vector<FileCommand>& commands,
                            std::initializer_list<FileState> states) {
    std::vector<Trial> trials;
    for (const FileCommand& command : commands) {
        for (const FileState state : states) {
            trials.push_back({&command, state});
        }
    }
    return trials;
}

std::string NameOfTrial(const testing::TestParamInfo<Trial>& info) {
    std::string name = info.param.command->Name + " " + std::string(NameOf(info.param.state));
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

}  // namespace orvik::test
