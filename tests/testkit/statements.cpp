// The statements of a scenario, in the order of their table.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "testkit/calls.h"
#include "testkit/scenario.h"
#include "testkit/statement.h"
#include "testkit/transcript.h"

namespace orvik::testkit {
namespace {

namespace fs = std::filesystem;

// A name inside the scenario's folder.
fs::path InFolder(const std::string& name) {
    fs::path path = fs::path(name).lexically_normal();
    if (name.empty() || path.is_absolute() || *path.begin() == "..") {
        throw ScenarioError("not a name in the scenario's folder: " + name);
    }
    return path;
}

template <class Kind>
Kind& As(const Target& target) {
    Kind* const* const control = std::get_if<Kind*>(&target.Ref);
    if (control == nullptr) {
        throw ScenarioError(std::string(target.Name) + " is no control of that kind");
    }
    return **control;
}

void Expect(bool holds, const std::string& message) {
    if (!holds) {
        throw ScenarioError(message);
    }
}

// The rows that "0,2" names.
std::vector<std::size_t> ParseRows(std::string_view rows) {
    std::vector<std::size_t> parsed;
    while (!rows.empty()) {
        const std::size_t end = std::min(rows.find(','), rows.size());
        parsed.push_back(ParseCount(rows.substr(0, end)));
        rows.remove_prefix(std::min(end + 1, rows.size()));
    }
    return parsed;
}

}  // namespace

void Scenario::MakeFile(const Words& words) {
    const std::size_t count = words.size() > 3 ? ParseCount(words[3]) : 1;
    const fs::path path = InFolder(words[1]);
    std::error_code ignored;
    fs::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (std::size_t i = 0; i < count; ++i) {
        file.write(words[2].data(), static_cast<std::streamsize>(words[2].size()));
    }
    if (!file.flush()) {
        throw ScenarioError("cannot write the file " + words[1]);
    }
}

void Scenario::MakeFolder(const Words& words) {
    std::error_code error;
    fs::create_directories(InFolder(words[1]), error);
    if (error) {
        throw ScenarioError("cannot make the folder " + words[1]);
    }
}

void Scenario::StoreSetting(const Words& words) {
    platform_.SaveSetting(words[1], words[2], words[3]);
}

void Scenario::StoreDefaults(const Words& /*words*/) {
    platform_.SaveSetting("Settings", "textSep", "5");
    platform_.SaveSetting("Settings", "Open", "1");
    platform_.SaveSetting("Settings", "Extract", "False");
    platform_.SaveSetting("Settings", "Sep", ",");
    platform_.SaveSetting("Settings", "Auto", "False");
}

void Scenario::SetClipboard(const Words& words) {
    platform_.clipboard = words[1];
}

void Scenario::QueueAnswers(const Words& words) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (words[i] == "Yes") {
            platform_.answers.push_back(Answer::Yes);
        } else if (words[i] == "No") {
            platform_.answers.push_back(Answer::No);
        } else if (words[i] == "Cancel") {
            platform_.answers.push_back(Answer::Cancel);
        } else {
            throw ScenarioError("unknown answer " + words[i]);
        }
    }
}

void Scenario::QueuePicks(const Words& words) {
    platform_.picks.insert(platform_.picks.end(), words.begin() + 1, words.end());
}

void Scenario::QueueModal(const Words& words) {
    platform_.modals.push_back({std::string(FindForm(words[1]).Name()), words[2]});
}

void Scenario::SetLinks(const Words& words) {
    if (words[1] != "ok" && words[1] != "fail") {
        throw ScenarioError("links are ok or fail");
    }
    platform_.links_succeed = words[1] == "ok";
}

void Scenario::Trace(const Words& words) {
    if (words[1] != "status") {
        throw ScenarioError("only the status can be traced");
    }
    trace_status_ = true;
}

void Scenario::Start(const Words& /*words*/) {
    if (platform_.IsNested()) {
        throw ScenarioError("the program cannot be started again from inside");
    }
    if (program_->form1.Loaded()) {
        MakeProgram();
    }
    platform_.starting = true;
    actor_.Start();
    platform_.starting = false;
}

void Scenario::SetControl(const Words& words) {
    const Target target = FindControl(words[1]);
    const std::string& value = words[2];
    if (std::holds_alternative<TextBox*>(target.Ref)) {
        actor_.SetText(target, As<TextBox>(target), value);
    } else if (std::holds_alternative<CheckBox*>(target.Ref)) {
        Expect(value == "0" || value == "1", "a check box takes 0 or 1");
        actor_.SetCheck(target, As<CheckBox>(target), value == "1");
    } else if (std::holds_alternative<OptionButton*>(target.Ref)) {
        Expect(value == "True", "an option button takes True");
        actor_.ChooseOption(target, As<OptionButton>(target));
    } else if (std::holds_alternative<ComboBox*>(target.Ref)) {
        ComboBox& combo = As<ComboBox>(target);
        Expect(std::find(combo.Items.begin(), combo.Items.end(), value) != combo.Items.end(),
               "the combo box has no item " + value);
        actor_.ChooseItem(target, combo, value);
    } else {
        ListBox& list = As<ListBox>(target);
        const std::vector<std::size_t> rows = ParseRows(value);
        for (const std::size_t row : rows) {
            Expect(row < list.Items().size(), "the list has no row " + std::to_string(row));
        }
        actor_.SelectRows(target, list, rows);
    }
}

void Scenario::SelectText(const Words& words) {
    const Target target = FindControl(words[1]);
    actor_.SelectText(target, As<TextBox>(target), ParseCount(words[2]), ParseCount(words[3]));
}

void Scenario::TypeText(const Words& words) {
    const Target target = FindControl(words[1]);
    actor_.TypeText(target, As<TextBox>(target), words[2]);
}

void Scenario::ReleaseKey(const Words& words) {
    actor_.ReleaseKey(LoadForm(words[1]), static_cast<int>(ParseCount(words[2])));
}

void Scenario::CloseForm(const Words& words) {
    actor_.Close(FindForm(words[1]));
}

void Scenario::ResizeForm(const Words& words) {
    actor_.Resize(LoadForm(words[1]), ParseNumber(words[2]), ParseNumber(words[3]));
}

void Scenario::ClickForm(const Words& words) {
    actor_.Click(LoadForm(words[1]));
}

void Scenario::DoubleClick(const Words& words) {
    actor_.DoubleClick(FindControl(words[1]));
}

void Scenario::EditEntry(const Words& words) {
    Expect(actor_.EditEntry(ParseCount(words[1]), words[2], words[3]),
           "the book has no row " + words[1]);
}

void Scenario::DeleteEntries(const Words& words) {
    std::vector<std::size_t> rows = ParseRows(words[1]);
    Expect(!rows.empty(), "delete-entries takes rows");
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    Expect(actor_.DeleteEntries(rows), "the book has no row " + std::to_string(rows.back()));
}

void Scenario::Undo(const Words& /*words*/) {
    actor_.Undo();
}

void Scenario::Redo(const Words& /*words*/) {
    actor_.Redo();
}

void Scenario::PutWork(const Words& words) {
    program_->module.TextMode = words[1];
    program_->module.WorkText = words[2];
}

void Scenario::Call(const Words& words) {
    const Words arguments(words.begin() + 2, words.end());
    const Procedure& procedure = FindProcedure(words[1], arguments.size());
    program_->module.history.Run(procedure.Name, [&] {
        if (const auto result = procedure.Run(program_->module, arguments)) {
            platform_.PrintLine("= " + *result);
        }
    });
}

void Scenario::ShowItems(const Words& words) {
    for (std::size_t i = 1; i < words.size(); ++i) {
        platform_.PrintLine(words[i] + " " + Show(words[i]));
    }
}

void Scenario::ShowSetting(const Words& words) {
    const auto value = platform_.GetSetting(words[1], words[2]);
    platform_.PrintLine("setting " + Quote(words[1]) + " " + Quote(words[2]) + " " +
                        (value ? Quote(*value) : "(none)"));
}

void Scenario::ShowFile(const Words& words) {
    std::ifstream file(InFolder(words[1]), std::ios::binary);
    std::error_code error;
    const bool found = fs::is_regular_file(words[1], error) && file;
    const std::string shown =
        found ? Quote(std::string{std::istreambuf_iterator<char>(file), {}}) : "(none)";
    platform_.PrintLine("file " + Quote(words[1]) + " " + shown);
}

void Scenario::ShowFiles(const Words& /*words*/) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(".")) {
        if (entry.is_regular_file()) {
            names.push_back(entry.path().lexically_relative(".").generic_string());
        }
    }
    std::sort(names.begin(), names.end());
    std::transform(names.begin(), names.end(), names.begin(), Quote);
    platform_.PrintLine("files " + FormatList(names));
}

}  // namespace orvik::testkit
