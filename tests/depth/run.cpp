#include "depth/run.h"

#include <algorithm>
#include <array>
#include <utility>

#include "testkit/transcript.h"

namespace orvik::depth {
namespace {

using testkit::Quote;

std::string RowsOf(const std::vector<std::size_t>& rows) {
    std::string text;
    for (const std::size_t row : rows) {
        text.append(text.empty() ? "" : ",").append(std::to_string(row));
    }
    return text;
}

}  // namespace

void Run::Restart() {
    acts_.reset();
    checks_.reset();
    program_.reset();
    auto person = std::make_unique<ChancePerson>(dice_, figures_.Handlers);
    person_ = person.get();
    program_ = std::make_unique<fuzz::FuzzedProgram>(std::move(person), &files_);
    Begin();
}

void Run::Begin() {
    acts_ = std::make_unique<Acts>(program_->Root(), figures_.Handlers);
    checks_ = std::make_unique<Checks>(*program_, *person_, files_);
}

void Run::Take() {
    const Act& act = acts_->Choose(dice_, figures_.Handlers, figures_.Steps);
    Step step{.Act = act.Name, .Title = act.Title, .Before = State::Of(program_->Root().module)};
    step.ByCr = program_->Root().module.textSep == "\r";
    person_->seen = {};
    person_->wish = {};
    files_.reading.BeginStep();
    ++figures_.Steps;
    figures_.Empty += step.Before.Text.empty() ? 1 : 0;
    figures_.Handlers.Count(act.Name);
    if (!Do(act, step)) {
        Restart();
        return;
    }
    step.After = State::Of(program_->Root().module);
    step.Clipboard = person_->clipboard;
    figures_.Changing += step.After.Text != step.Before.Text ? 1 : 0;
    checks_->After(step);
}

bool Run::Say(const std::string& statement) {
    statement_ = statement;
    return program_->Run(statement);
}

// Returns false if the program has ended.
bool Run::Do(const Act& act, Step& step) {
    FillClipboard(act.Name);
    if (act.Name == "start") {
        return StartAgain();
    }
    if (act.Name == "drop") {
        return Drop();
    }
    if (act.Name == "chooser") {
        const bool asks = program_->Root().module.OpenMode == kAskAlways;
        person_->wish.AsksAlways = true;
        step.Act = asks ? "Form1.mnuOpen_Click" : "Form1.mnuPrefs_Click";
        step.Title = asks ? "Open file" : "Preferences";
        return Say(step.Act);
    }
    if (act.Name == "Form1.mnuOpen_Click" && !checks_->SavedName().empty()) {
        person_->wish.Pick = checks_->SavedName();
    }
    person_->wish.NeverSaves = act.Name == "Form1.mnuOpen_Click";
    if (act.Owner != nullptr) {
        statement_ = act.Name;
        return program_->RunHandler(*act.Owner, act.Handler);
    }
    return Say(StatementFor(act, step));
}

void Run::FillClipboard(const std::string& act) {
    checks_->pasted.reset();
    const auto fill = [&](Kind kind) {
        Book book = MakeBook(dice_, kind);
        person_->clipboard = std::move(book.Text);
        checks_->pasted = std::move(book.Exact);
    };
    // Now and then it is what this program has copied.
    if (dice_.Percent(20)) {
        return;
    }
    if (act == "Form1.mnuClearPaste_Click") {
        fill(dice_.Percent(60) ? Kind::Native : Kind::List);
    } else if (act == "Form1.mnuClearPasteNet4_Click") {
        fill(Kind::Ldif);
    } else if (act == "Form1.mnuClearPasteNet3_Click") {
        fill(Kind::Netscape3);
    } else if (act == "Form1.mnuPasteJuno_Click") {
        fill(Kind::Juno);
    } else if (act == "Form1.mnuPaste_Click") {
        person_->clipboard = MakeNoise(dice_) + MakeEntry(dice_).Address + "\r\n";
    }
}

// The next run of the program, of the same user: mostly with an automation.
bool Run::StartAgain() {
    const std::string opened = person_->PickToOpen(true);
    if (dice_.Percent(80)) {
        const auto set =
            [&](const std::string& section, const std::string& key, const std::string& value) {
                person_->SaveSetting(section, key, value);
            };
        // Extract, or open; sort, or not; save, or another of these.
        constexpr std::array kFirst = {"2", "2", "2", "5"};
        const std::string steps = "Settings\\AutoSteps";
        set("Settings", "Auto", "True");
        set("Settings", "info", "1");
        set("Settings", "aClose", dice_.Percent(5) ? "1" : "0");
        set("Settings", "aOpenName", opened);
        set("Settings", "aSaveName", fuzz::FuzzedProgram::Name("auto.txt"));
        set("Settings", "Open", "1");
        set(steps, "1", dice_.Of(kFirst));
        set(steps, "2", std::to_string(3 + dice_.Below(3)));
        set(steps, "3", std::to_string(dice_.Below(5)));
        set(steps, "4", "0");
    } else {
        Say("defaults");
    }
    if (!Say("start")) {
        return false;
    }
    person_->SaveSetting("Settings", "Auto", "False");
    // The chooser of an automation's file may have left a step to undo that nobody saw begin.
    if (!program_->Root().module.history.UndoTitle().empty() && !Say("start")) {
        return false;
    }
    Begin();
    return true;
}

bool Run::Drop() {
    Module1& module = program_->Root().module;
    const std::string name = person_->PickToOpen(false);
    statement_ = "drop " + name;
    try {
        module.history.Run("Open file", [&] { module.form1.OpenBook(name); });
    } catch (const ProgramEnded&) {
        return false;
    }
    return true;
}

void Run::ChooseRows(Step& step, std::size_t rows) {
    for (std::size_t i = dice_.Below(3) + 1; i > 0; --i) {
        step.Rows.push_back(dice_.Below(rows));
    }
    std::sort(step.Rows.begin(), step.Rows.end());
    step.Rows.erase(std::unique(step.Rows.begin(), step.Rows.end()), step.Rows.end());
}

std::string Run::StatementFor(const Act& act, Step& step) {
    Form1& form = program_->Root().form1;
    const std::string& name = act.Name;
    if (name == "edit-entry") {
        step.Rows = {dice_.Below(form.EntryRows())};
        step.NewEntry = MakeEntry(dice_);
        if (dice_.Percent(5)) {
            step.NewEntry.Nickname += MakeNoise(dice_);
        }
        return "edit-entry " + RowsOf(step.Rows) + " " + Quote(step.NewEntry.Address) + " " +
               Quote(step.NewEntry.Nickname);
    }
    if (name == "delete-entries") {
        ChooseRows(step, form.EntryRows());
        return "delete-entries " + RowsOf(step.Rows);
    }
    if (name == "Form1.List1_Click" || name == "Form1.List2_Click" || name == "rows") {
        const ListBox& list = name == "rows"                ? form.List3
                              : name == "Form1.List1_Click" ? form.List1
                                                            : form.List2;
        ChooseRows(step, list.Items().size());
        return std::string("set Form1.List") +
               (name == "rows" ? '3' : name[std::string_view("Form1.List").size()]) + " " +
               RowsOf(step.Rows);
    }
    if (name == "type" || name == "Form1.Text1_Change") {
        const Entry entry = MakeEntry(dice_);
        std::string text = "\"" + entry.Nickname + "\" <" + entry.Address + ">\r\n";
        if (name == "type") {
            figures_.Handlers.Count("Form1.Text1_Change");
            return "type Form1.Text1 " + Quote(dice_.Percent(30) ? MakeNoise(dice_) : text);
        }
        return "set Form1.Text1 " + Quote(std::string(form.Text1.Text()) + text);
    }
    if (name == "select") {
        const std::size_t size = form.Text1.Text().size() + 1;
        return "select Form1.Text1 " + std::to_string(dice_.Below(size)) + " " +
               std::to_string(dice_.Below(12));
    }
    if (name == "Form1.Form_Resize") {
        return "resize Form1 " + std::to_string(dice_.Below(9000)) + " " +
               std::to_string(dice_.Below(9000));
    }
    return name == "key" ? "key Form1 112" : name;
}

}  // namespace orvik::depth
