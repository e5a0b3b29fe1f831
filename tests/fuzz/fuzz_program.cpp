#include "fuzz/fuzz_program.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <utility>

#include "fuzz/fuzz_target.h"
#include "testkit/statement.h"
#include "testkit/transcript.h"

namespace orvik::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr int kMostAnswers = 12;
constexpr int kMostPicks = 6;
constexpr int kMostClicks = 4;

// The folder of this process.
class ScratchFolder {
 public:
    ScratchFolder() {
        std::random_device random;
        do {
            path_ = fs::temp_directory_path() / ("orvik-fuzz-" + std::to_string(random()));
        } while (!fs::create_directory(path_));
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ScratchFolder(ScratchFolder&&) = delete;
    ScratchFolder& operator=(ScratchFolder&&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    [[nodiscard]] const fs::path& Path() const { return path_; }
    void Empty() const {
        for (const fs::directory_entry& entry : fs::directory_iterator(path_)) {
            fs::remove_all(entry.path());
        }
    }

 private:
    fs::path path_;
};

const ScratchFolder& Scratch() {
    static const ScratchFolder folder;
    return folder;
}

bool Printing() {
    static const bool printing = std::getenv("ORVIK_PRINT_SCENARIO") != nullptr;
    return printing;
}

void Trace(const std::string& line) {
    if (Printing()) {
        std::fprintf(stderr, "%s\n", line.c_str());
    }
}

void CheckList(const ListBox& list) {
    Check(list.Selected().empty() || list.Selected().back() < list.Items().size(),
          "a selected row exists");
    Check(list.ListIndex >= -1, "a row that was clicked has a number");
}

}  // namespace

FuzzPlatform::FuzzPlatform()
    : ScenarioPlatform([](const std::string& line) { Trace("> " + line); }) {}

Answer FuzzPlatform::ShowBox(const MessageBox& box) {
    if (box.Choice == Buttons::YesNo && !answers.empty() && answers.front() == Answer::Cancel) {
        answers.front() = Answer::No;
    }
    return ScenarioPlatform::ShowBox(box);
}

void FuzzPlatform::ShowForm(Form& form, Showing showing) {
    if (showing == Showing::Modal) {
        std::string act;
        const auto handlers = form.Handlers();
        if (!clicks.empty() && !handlers.empty()) {
            const NamedHandler& handler = handlers[clicks.front() % handlers.size()];
            clicks.pop_front();
            act.append(form.Name()).append(".").append(handler.Name);
        }
        Trace("modal " + std::string(form.Name()) + " " + testkit::Quote(act));
        modals.push_front({std::string(form.Name()), act});
    }
    ScenarioPlatform::ShowForm(form, showing);
}

FuzzedProgram::FuzzedProgram(std::unique_ptr<FuzzPlatform> platform, FileSystem* files)
    : platform_(std::move(platform)), scenario_(*platform_, actor_, files) {
    Scratch().Empty();
    Run("defaults");
    Run("start");
}

std::string FuzzedProgram::Name(std::string_view file) {
    return (Scratch().Path() / file).string();
}

void FuzzedProgram::WriteFile(const std::string& name, std::string_view contents) {
    Trace("file " + testkit::Quote(fs::path(name).filename().string()) + " " +
          testkit::Quote(contents));
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
}

bool FuzzedProgram::Run(const std::string& statement) {
    return RunTraced(statement, [&] { scenario_.Run(statement); });
}

bool FuzzedProgram::RunHandler(Form& form, const NamedHandler& handler) {
    return RunTraced(std::string(form.Name()).append(".").append(handler.Name), [&] {
        try {
            actor_.RunHandler(form, handler);
        } catch (const ProgramEnded&) {
            // The platform remembers it.
        }
    });
}

bool FuzzedProgram::RunTraced(const std::string& statement, const std::function<void()>& act) {
    Trace(statement);
    try {
        act();
    } catch (const testkit::ScenarioError& error) {
        Trace(std::string("# ") + error.what());
        return false;
    }
    return !platform_->Ended();
}

void FuzzedProgram::Queue(std::uint8_t choices, const std::string& pick) {
    platform_->answers.clear();
    platform_->picks.clear();
    platform_->clicks.clear();
    platform_->at_yield.clear();
    for (int i = 0; i < kMostAnswers; ++i) {
        constexpr std::array kAnswers = {Answer::Yes, Answer::No, Answer::Yes, Answer::Cancel};
        platform_->answers.push_back(kAnswers.at((choices >> (i % 4 * 2)) & 3U));
    }
    for (int i = 0; i < kMostPicks; ++i) {
        platform_->picks.push_back(pick);
    }
    for (int i = 0; i < kMostClicks; ++i) {
        platform_->clicks.push_back(static_cast<std::uint8_t>(choices + i));
    }
    if (choices >= 0x80) {
        platform_->at_yield.emplace_back(choices & 0xFU, "Form1.cmdCancel_Click");
    }
}

void FuzzedProgram::CheckState() const {
    const Module1& module = Root().module;
    const Form1& form = module.form1;
    CheckList(form.List1);
    CheckList(form.List2);
    CheckList(form.List3);
    Check(form.Text1.SelStart + form.Text1.SelLength <= form.Text1.Text().size(),
          "a selection lies inside the text");
    Check(form.mnuEntEd.Checked == module.EditMode, "the menu shows edit mode");
    Check(form.List1.Visible != module.EditMode, "the lists show where there is no edit mode");
    Check(form.mnuOrvik.Enabled != module.EditMode, "edit mode has no View menu");
    Check(form.mnuFile.Enabled, "no extraction runs");
    Check(!form.cmdCancel.Visible || form.cmdDone.Visible, "nothing is left to cancel");
    Check(module.TextMode == mode::kNone || module.TextMode == mode::kAscii ||
              module.TextMode == mode::kNative || module.TextMode == mode::kMoz4 ||
              module.TextMode == mode::kJuno,
          "the mode is known");
}

void FuzzedProgram::CheckHistory() {
    Module1& module = Root().module;
    if (module.EditMode) {
        return;
    }
    const auto redo_all = [&] {
        for (std::size_t i = 0; i <= UndoHistory::kMostSteps; ++i) {
            module.history.Redo();
            CheckState();
        }
    };
    redo_all();
    const SharedText text = module.WorkText;
    const std::string caption = module.form1.Caption;
    for (std::size_t i = 0; i <= UndoHistory::kMostSteps; ++i) {
        module.history.Undo();
        CheckState();
    }
    redo_all();
    Check(module.WorkText == text, "the text comes back");
    Check(module.form1.Caption == caption, "the caption comes back");
}

}  // namespace orvik::fuzz
