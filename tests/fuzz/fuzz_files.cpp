// A file is opened, merged or extracted from, and saved. The bytes:
//   1 the ending of the file     2 the ending to save under     3 settings and command
//   4 the answers                5 whether the contents are repeated to a long file
// and behind them the contents.

#include <array>
#include <string>
#include <string_view>

#include "fuzz/fuzz_program.h"
#include "fuzz/fuzz_target.h"

namespace orvik::fuzz {
namespace {

constexpr std::size_t kHead = 5;
constexpr std::uint8_t kLong = 0xA5;
constexpr std::size_t kLongest = 33000;

constexpr std::array<std::string_view, 11> kEndings = {
    "txt", "ldif", "htm", "nv", "csv", "abx", "pml", "xtr", "html", "ldi", "dat"};

std::string NameWith(std::uint8_t ending, std::string_view stem) {
    return FuzzedProgram::Name(std::string(stem) + "." +
                               std::string(kEndings.at(ending % kEndings.size())));
}

// Long files cost time, so one value only asks for one.
std::string ContentsOf(std::string_view text, std::uint8_t length) {
    std::string contents(text);
    while (length == kLong && !text.empty() && contents.size() < kLongest) {
        contents += text;
    }
    return contents;
}

void RunFiles(const std::uint8_t* data, std::size_t size) {
    constexpr std::array<std::string_view, 4> kCommands = {
        "mnuOpen_Click", "mnuOpen_Click", "mnuMerge_Click", "mnuExtract_Click"};
    FuzzedProgram program;
    const std::uint8_t settings = data[2];
    program.Root().module.textSep = (settings & 1U) != 0 ? "," : "\r";
    program.Root().module.OpenMode = 1 + (settings >> 1U) % 4;

    const std::string opened = NameWith(data[0], "book");
    FuzzedProgram::WriteFile(opened, ContentsOf(TextOf(data + kHead, size - kHead), data[4]));
    program.Queue(data[3], opened);
    const std::string command(kCommands.at((settings >> 3U) % kCommands.size()));
    if (!program.Run("Form1." + command)) {
        return;
    }
    program.CheckState();
    // The chooser that a refused file or the settings have brought.
    Form3& chooser = program.Root().form3;
    if (chooser.Visible()) {
        std::vector<NamedControl> buttons = chooser.Controls();
        std::erase_if(buttons, [](const NamedControl& control) { return !control.Click; });
        const NamedControl& pressed = buttons[(settings >> 5U) % buttons.size()];
        if (!program.Run("Form3." + std::string(pressed.Name) + "_Click")) {
            return;
        }
        program.CheckState();
    }
    program.Queue(data[3], NameWith(data[1], data[1] >= 0x80 ? "book" : "saved"));
    if (!program.Run("Form1.mnuSave_Click")) {
        return;
    }
    program.CheckState();
    program.CheckHistory();
}

}  // namespace
}  // namespace orvik::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size >= orvik::fuzz::kHead) {
        orvik::fuzz::RunFiles(data, size);
    }
    return 0;
}
