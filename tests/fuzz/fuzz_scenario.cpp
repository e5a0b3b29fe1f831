// Any commands in any order. The bytes are parts with 0xFF between them:
//   settings and commands, the working text, the clipboard, the contents of files
// A command is two bytes: what is done, and the answers, names and clicks that go with it.

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/fuzz_program.h"
#include "fuzz/fuzz_target.h"
#include "testkit/transcript.h"

namespace orvik::fuzz {
namespace {

using testkit::Quote;

constexpr std::size_t kMostCommands = 12;

// Takes what stands before the next 0xFF.
std::string_view TakePart(std::string_view& bytes) {
    const std::size_t end = std::min(bytes.find('\xFF'), bytes.size());
    const std::string_view part = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    return part;
}

std::uint8_t ByteAt(std::string_view bytes, std::size_t i) {
    return i < bytes.size() ? static_cast<std::uint8_t>(bytes[i]) : std::uint8_t{0};
}

// Every handler that is an act of the user, and acts that have no handler.
std::vector<std::string> Acts(Program& program, std::string_view typed) {
    std::vector<std::string> acts = {"undo",
                                     "redo",
                                     "type Form1.Text1 " + Quote(typed),
                                     "set Form1.Text1 " + Quote(typed),
                                     "select Form1.Text1 1 2",
                                     "set Form1.List1 0",
                                     "set Form1.List2 1",
                                     "set Form1.List3 0,1",
                                     "key Form3 112",
                                     "resize Form1 3000 1000",
                                     "call RefreshLists"};
    for (Form* form : program.Forms()) {
        acts.push_back("close " + std::string(form->Name()));
        for (const NamedHandler& handler : form->Handlers()) {
            // A form is loaded by being shown.
            if (handler.Name != "Form_Load") {
                acts.push_back(std::string(form->Name()) + "." + std::string(handler.Name));
            }
        }
    }
    return acts;
}

// A selection of rows that the list does not have is no act of a user.
bool IsPossible(const Module1& module, std::string_view act) {
    const Form1& form = module.form1;
    if (act.starts_with("set Form1.List1")) {
        return !form.List1.Items().empty();
    }
    if (act.starts_with("set Form1.List2")) {
        return form.List2.Items().size() > 1;
    }
    if (act.starts_with("set Form1.List3")) {
        return form.List3.Items().size() > 1;
    }
    return true;
}

std::string PickOf(std::uint8_t choices, std::string_view contents) {
    constexpr std::array<std::string_view, 10> kNames = {
        "a.txt", "a.ldif", "a.htm", "a.nv", "a.csv", "a.abx", "a.pml", "a.xtr", "a.dat", ""};
    const std::string_view name = kNames.at(choices % kNames.size());
    if (name.empty()) {
        return {};
    }
    const std::string full = FuzzedProgram::Name(name);
    if (!std::filesystem::exists(full)) {
        FuzzedProgram::WriteFile(full, contents);
    }
    return full;
}

void RunCommands(std::string_view bytes) {
    constexpr std::array<std::string_view, 3> kModes = {"Native", "ASCII", "none"};
    const std::string_view commands = TakePart(bytes);
    const std::string_view work = TakePart(bytes);
    const std::string_view clipboard = TakePart(bytes);

    FuzzedProgram program;
    Module1& module = program.Root().module;
    const std::uint8_t settings = ByteAt(commands, 0);
    module.textSep = (settings & 1U) != 0 ? "," : "\r";
    module.OpenMode = 1 + (settings >> 1U) % 4;
    module.AutoExtract = (settings >> 3U) % 8 == 7;
    program.Run("clipboard " + Quote(clipboard));
    program.Run("work " + std::string(kModes.at((settings >> 6U) % kModes.size())) + " " +
                Quote(work));

    const std::vector<std::string> acts = Acts(program.Root(), clipboard);
    for (std::size_t i = 0; i < kMostCommands && 2 * i + 2 < commands.size() + 1; ++i) {
        const std::string& act = acts[ByteAt(commands, 2 * i + 1) % acts.size()];
        const std::uint8_t choices = ByteAt(commands, 2 * i + 2);
        if (!IsPossible(module, act)) {
            continue;
        }
        program.Queue(choices, PickOf(choices, bytes));
        if (!program.Run(act)) {
            return;
        }
        program.CheckState();
    }
    program.CheckHistory();
}

}  // namespace
}  // namespace orvik::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvik::fuzz::RunCommands(orvik::fuzz::TextOf(data, size));
    return 0;
}
