#include "testkit/scenario_platform.h"

#include <algorithm>
#include <utility>

#include "app/form.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "testkit/statement.h"
#include "testkit/transcript.h"

namespace orvik::testkit {
namespace {

std::string_view NameOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::OK:
            return "OK";
        case Buttons::YesNo:
            return "YesNo";
        case Buttons::YesNoCancel:
            break;
    }
    return "YesNoCancel";
}

std::string_view NameOf(Answer answer) {
    switch (answer) {
        case Answer::OK:
            return "OK";
        case Answer::Cancel:
            return "Cancel";
        case Answer::Yes:
            return "Yes";
        case Answer::No:
            break;
    }
    return "No";
}

template <class Value>
Value TakeFirst(std::deque<Value>& queue, const std::string& missing) {
    if (queue.empty()) {
        throw ScenarioError(missing);
    }
    Value first = std::move(queue.front());
    queue.pop_front();
    return first;
}

// Joins the words of a line with blanks.
std::string Line(std::initializer_list<std::string_view> words) {
    std::string line;
    for (const std::string_view word : words) {
        line.append(line.empty() ? "" : " ").append(word);
    }
    return line;
}

}  // namespace

void ScenarioPlatform::Sync() {
    if (windows != nullptr) {
        windows->Sync();
    }
}

Answer ScenarioPlatform::TakeAnswer(const MessageBox& box) {
    if (box.Choice == Buttons::OK) {
        return Answer::OK;
    }
    const Answer answer =
        TakeFirst(answers, "no answer is queued for the question " + Quote(box.Text));
    if (answer == Answer::Cancel && box.Choice == Buttons::YesNo) {
        throw ScenarioError("the question " + Quote(box.Text) + " has no Cancel button");
    }
    return answer;
}

Answer ScenarioPlatform::ShowBox(const MessageBox& box) {
    Sync();
    const Answer answer = TakeAnswer(box);
    PrintLine(Line({"box",
                    Quote(box.Text),
                    Quote(box.Title),
                    NameOf(box.Choice),
                    box.Sign == Icon::Question ? "question" : "none",
                    NameOf(answer)}));
    return answer;
}

std::string ScenarioPlatform::ShowFileDialog(FileDialog& dialog) {
    Sync();
    std::string picked =
        TakeFirst(picks, "no pick is queued for the file dialog " + Quote(dialog.Title));
    PrintLine(Line({"dialog",
                    dialog.Kind == DialogKind::Open ? "open" : "save",
                    Quote(dialog.Title),
                    Quote(dialog.Filter),
                    std::to_string(dialog.Flags),
                    Quote(dialog.FileName),
                    Quote(picked)}));
    return picked;
}

std::optional<std::string> ScenarioPlatform::GetSetting(std::string_view section,
                                                        std::string_view key) {
    const auto found = settings_.find({std::string(section), ToLower(key)});
    return found == settings_.end() ? std::nullopt : std::optional(found->second);
}

void ScenarioPlatform::SaveSetting(std::string_view section,
                                   std::string_view key,
                                   std::string_view value) {
    settings_[{std::string(section), ToLower(key)}] = value;
}

bool ScenarioPlatform::CreateShellLink(const ShellLink& link) {
    PrintLine(Line({"link create",
                    Quote(link.Folder),
                    Quote(link.Name),
                    Quote(link.Target),
                    Quote(link.Arguments),
                    Format(link.Private),
                    Quote(link.Parent),
                    links_succeed ? "1" : "0"}));
    return links_succeed;
}

void ScenarioPlatform::RemoveShellLink(std::string_view folder, std::string_view name) {
    PrintLine(Line({"link remove", Quote(folder), Quote(name)}));
}

void ScenarioPlatform::ShowHelp(HelpCommand command,
                                std::string_view target,
                                std::string_view data) {
    PrintLine(
        Line({"help", std::to_string(static_cast<int>(command)), Quote(target), Quote(data)}));
}

void ScenarioPlatform::ShowForm(Form& form, Showing showing) {
    Sync();
    if (!starting || form.Name() != "Form1") {
        PrintLine(Line({"form", form.Name(), showing == Showing::Modal ? "modal" : "modeless"}));
    }
    if (windows != nullptr) {
        windows->Shown(form);
    }
    if (showing == Showing::Modeless) {
        return;
    }
    const auto acts = std::find_if(modals.begin(), modals.end(), [&](const ModalActs& queued) {
        return queued.FormName == form.Name();
    });
    if (acts == modals.end()) {
        throw ScenarioError("nothing is queued for the modal showing of " +
                            std::string(form.Name()));
    }
    const std::string statements = acts->Statements;
    modals.erase(acts);
    const bool was_nested = std::exchange(nested_, true);
    run_modal(statements);
    nested_ = was_nested;
    if (form.Visible()) {
        form.Unload();
    }
}

void ScenarioPlatform::HideForm(Form& form) {
    PrintLine(Line({"form", form.Name(), "hidden"}));
    if (windows != nullptr) {
        windows->Hidden(form);
    }
}

void ScenarioPlatform::CloseForm(Form& form) {
    PrintLine(Line({"form", form.Name(), "closed"}));
    if (windows != nullptr) {
        windows->Closed(form);
    }
}

void ScenarioPlatform::Repaint() {
    Sync();
}

void ScenarioPlatform::Yield() {
    Sync();
    std::vector<std::string> due;
    for (auto& [left, statement] : at_yield) {
        if (--left == 0) {
            due.push_back(statement);
        }
    }
    std::erase_if(at_yield, [](const auto& entry) { return entry.first == 0; });
    const bool was_nested = std::exchange(nested_, true);
    for (const std::string& statement : due) {
        run_statement(statement);
    }
    nested_ = was_nested;
}

void ScenarioPlatform::ReportFailure(const RunTimeError& failure) {
    PrintLine(Line({"error", std::to_string(failure.Number()), Quote(failure.what())}));
}

void ScenarioPlatform::End() {
    ended_ = true;
    PrintLine("end");
    throw ProgramEnded();
}

}  // namespace orvik::testkit
