#include "testkit/scenario.h"

#include <algorithm>

#include "testkit/calls.h"
#include "testkit/properties.h"
#include "testkit/statement.h"
#include "testkit/transcript.h"

namespace orvik::testkit {

Scenario::Scenario(ScenarioPlatform& platform, Actor& actor, FileSystem* files)
    : platform_(platform), actor_(actor), files_(files != nullptr ? *files : own_files_) {
    platform_.run_modal = [this](const std::string& statements) { RunModal(statements); };
    platform_.run_statement = [this](const std::string& line) { RunWords(line); };
    MakeProgram();
}

Scenario::~Scenario() {
    actor_.Detach();
}

const std::vector<Scenario::Statement>& Scenario::Statements() {
    static const std::vector<Statement> kStatements = {
        {"file", 3, 4, &Scenario::MakeFile},
        {"folder", 2, 2, &Scenario::MakeFolder},
        {"setting", 4, 4, &Scenario::StoreSetting},
        {"defaults", 1, 1, &Scenario::StoreDefaults},
        {"clipboard", 2, 2, &Scenario::SetClipboard},
        {"answer", 2, Words().max_size(), &Scenario::QueueAnswers},
        {"pick", 2, Words().max_size(), &Scenario::QueuePicks},
        {"modal", 3, 3, &Scenario::QueueModal},
        {"links", 2, 2, &Scenario::SetLinks},
        {"click", 2, 2, &Scenario::ClickForm},
        {"dblclick", 2, 2, &Scenario::DoubleClick},
        {"trace", 2, 2, &Scenario::Trace},
        {"start", 1, 1, &Scenario::Start},
        {"set", 3, 3, &Scenario::SetControl},
        {"select", 4, 4, &Scenario::SelectText},
        {"type", 3, 3, &Scenario::TypeText},
        {"key", 3, 3, &Scenario::ReleaseKey},
        {"close", 2, 2, &Scenario::CloseForm},
        {"resize", 4, 4, &Scenario::ResizeForm},
        {"edit-entry", 4, 4, &Scenario::EditEntry},
        {"delete-entries", 2, 2, &Scenario::DeleteEntries},
        {"undo", 1, 1, &Scenario::Undo},
        {"redo", 1, 1, &Scenario::Redo},
        {"work", 3, 3, &Scenario::PutWork},
        {"call", 2, Words().max_size(), &Scenario::Call},
        {"show", 2, Words().max_size(), &Scenario::ShowItems},
        {"show-setting", 3, 3, &Scenario::ShowSetting, true},
        {"show-file", 2, 2, &Scenario::ShowFile, true},
        {"show-files", 1, 1, &Scenario::ShowFiles, true},
    };
    return kStatements;
}

void Scenario::Run(std::string_view line) {
    try {
        RunWords(line);
    } catch (const ProgramEnded&) {
        // The platform has printed it and remembers it.
    }
}

void Scenario::RunWords(std::string_view line) {
    const Words words = SplitWords(line);
    if (words.empty()) {
        throw ScenarioError("a statement is expected");
    }
    // The rest of this line is a statement of its own, with quotes of its own.
    if (words[0] == "at-yield") {
        if (words.size() < 3 || ParseCount(words[1]) == 0) {
            throw ScenarioError("at-yield takes a number from 1 and a statement");
        }
        if (!platform_.Ended()) {
            platform_.at_yield.emplace_back(ParseCount(words[1]), BehindWords(line, 2));
        }
        return;
    }
    const auto& known = Statements();
    const auto found = std::find_if(known.begin(), known.end(), [&](const Statement& statement) {
        return statement.Name == words[0];
    });
    if (platform_.Ended() && (found == known.end() || !found->AfterTheEnd)) {
        return;
    }
    if (found == known.end()) {
        if (words.size() > 1 || words[0].find('.') == std::string::npos) {
            throw ScenarioError("unknown statement " + words[0]);
        }
        RunHandler(words[0]);
        return;
    }
    if (words.size() < found->FewestWords || words.size() > found->MostWords) {
        throw ScenarioError("wrong number of words for " + words[0]);
    }
    (this->*found->Run)(words);
}

void Scenario::RunModal(const std::string& statements) {
    std::string_view rest = statements;
    bool ended = false;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(';'), rest.size());
        const std::string_view statement = rest.substr(0, end);
        if (statement.find_first_not_of(" \t") != std::string_view::npos) {
            // What still runs after the end also does so here.
            try {
                RunWords(statement);
            } catch (const ProgramEnded&) {
                ended = true;
            }
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (ended) {
        throw ProgramEnded();
    }
}

void Scenario::MakeProgram() {
    auto next = std::make_unique<Program>(platform_, files_);
    next->form1.StatusBar1.TextChanged = [this](std::size_t panel, std::string_view text) {
        if (trace_status_) {
            platform_.PrintLine("status " + std::to_string(panel) + " " + Quote(text));
        }
    };
    actor_.Attach(*next);
    program_ = std::move(next);
}

Form& Scenario::FindForm(std::string_view name) {
    for (Form* form : program_->Forms()) {
        if (form->Name() == name) {
            return *form;
        }
    }
    throw ScenarioError("unknown form " + std::string(name));
}

Form& Scenario::LoadForm(std::string_view name) {
    Form& form = FindForm(name);
    program_->module.RunEvent([&] { form.Load(); });
    return form;
}

// name is FORM.CONTROL.
Target Scenario::FindControl(std::string_view name) {
    const std::size_t dot = name.find('.');
    if (dot == std::string_view::npos) {
        throw ScenarioError("a control is expected, not " + std::string(name));
    }
    Form& form = LoadForm(name.substr(0, dot));
    for (const NamedControl& control : form.Controls()) {
        if (control.Name == name.substr(dot + 1)) {
            return {form, control};
        }
    }
    throw ScenarioError("unknown control " + std::string(name));
}

void Scenario::RunHandler(std::string_view name) {
    const std::size_t dot = name.find('.');
    Form& form = FindForm(name.substr(0, dot));
    for (const NamedHandler& handler : form.Handlers()) {
        if (handler.Name == name.substr(dot + 1)) {
            program_->module.RunEvent([&] { form.Load(); });
            actor_.RunHandler(form, handler);
            return;
        }
    }
    throw ScenarioError("unknown handler " + std::string(name));
}

std::string Scenario::Show(const std::string& item) {
    if (item == "clipboard") {
        return Quote(platform_.clipboard);
    }
    const std::size_t dot = item.find('.');
    if (dot == std::string::npos) {
        return FormatState(program_->module, item);
    }
    Form& form = FindForm(std::string_view(item).substr(0, dot));
    const std::string rest = item.substr(dot + 1);
    if (rest.find('.') == std::string::npos) {
        if (rest != "Visible" && rest != "Loaded") {
            LoadForm(form.Name());
        }
        return FormatProperty(form, rest);
    }
    const std::size_t second = item.find('.', dot + 1);
    return actor_.ReadProperty(FindControl(std::string_view(item).substr(0, second)),
                               std::string_view(item).substr(second + 1));
}

}  // namespace orvik::testkit
