#include "depth/chance_person.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "app/run_time_error.h"
#include "formats/endings.h"

namespace orvik::depth {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

constexpr std::uintmax_t kLongFile = 60000;

// What a person can do in a form, and the handler that it runs.
struct FormAct {
    std::string_view Handler;
    std::string_view Statement;
};

constexpr std::array kPreferences = {
    FormAct{"Form2.Option1_Click", "set Form2.Option1 True"},
    FormAct{"Form2.Option2_Click", "set Form2.Option2 True"},
    FormAct{"Form2.Option3_Click", "set Form2.Option3 True"},
    FormAct{"Form2.Option4_Click", "set Form2.Option4 True"},
    FormAct{"Form2.Check1_Click", "set Form2.Check1 1"},
    FormAct{"Form2.Check1_Click", "set Form2.Check1 0"},
    FormAct{"Form2.Check2_Click", "set Form2.Check2 1"},
    FormAct{"Form2.Check2_Click", "set Form2.Check2 0"},
    FormAct{"Form2.Combo1_Click", "set Form2.Combo1 \"Sort by Nickname\""},
    FormAct{"Form2.Combo1_Click", "set Form2.Combo1 Done"},
    FormAct{"Form2.Command3_Click", "Form2.Command3_Click"},
    FormAct{"Form2.Command4_Click", "Form2.Command4_Click"},
    FormAct{"Form2.Command5_Click", "Form2.Command5_Click"},
    FormAct{"Form2.Command6_Click", "Form2.Command6_Click"},
    FormAct{"Form2.Separator", "set Form2.Option5 True"},
    FormAct{"Form2.Separator", "set Form2.Option5 True"},
    FormAct{"Form2.Separator", "set Form2.Option5 True"},
    FormAct{"Form2.Separator", "set Form2.Option6 True"},
};
constexpr std::array kPreferencesEnd = {
    FormAct{"Form2.Command1_Click", "Form2.Command1_Click"},
    FormAct{"Form2.Command1_Click", "Form2.Command1_Click"},
    FormAct{"Form2.Command1_Click", "Form2.Command1_Click"},
    FormAct{"Form2.Command2_Click", "Form2.Command2_Click"},
    FormAct{"Form2.Form_Unload", "close Form2"},
};
constexpr std::array kSeparatorEnd = {
    FormAct{"Form5.Command1_Click", "Form5.Command1_Click"},
    FormAct{"Form5.Command2_Click", "Form5.Command2_Click"},
    FormAct{"Form5.Form_Unload", "close Form5"},
};
constexpr std::array kChooser = {
    FormAct{"Form3.Command1_Click", "Form3.Command1_Click"},
    FormAct{"Form3.Command2_Click", "Form3.Command2_Click"},
    FormAct{"Form3.Command3_Click", "Form3.Command3_Click"},
    FormAct{"Form3.Command5_Click", "Form3.Command5_Click"},
    FormAct{"Form3.Command7_Click", "Form3.Command7_Click"},
};

}  // namespace

Answer ChancePerson::AnswerTo(const MessageBox& box) {
    if (box.Title == "Save?") {
        if (box.Text == "Save before exiting?") {
            return dice_.Percent(85) ? Answer::Cancel : Answer::No;
        }
        if (!wish.NeverSaves && dice_.Percent(10)) {
            return Answer::Yes;
        }
        return wish.NeverSaves || dice_.Percent(90) ? Answer::No : Answer::Cancel;
    }
    const bool yes = box.Title == "Warning: long file" ? dice_.Percent(80) : dice_.Percent(50);
    // A running extraction is long or short: whether it stops is seen there.
    seen.Stopped = seen.Stopped || box.Title == (yes ? "Really cancel?" : "Warning: long file");
    return yes ? Answer::Yes : Answer::No;
}

Answer ChancePerson::ShowBox(const MessageBox& box) {
    if (box.Cause) {
        seen.Failures.push_back(static_cast<int>(*box.Cause));
    }
    if (box.Choice != Buttons::OK) {
        answers.assign(1, AnswerTo(box));
        seen.Cancelled = seen.Cancelled || answers.front() == Answer::Cancel;
    }
    return ScenarioPlatform::ShowBox(box);
}

std::string ChancePerson::PickToOpen(bool to_extract) {
    constexpr std::array kNames = {"a.txt"sv,
                                   "b.ldif"sv,
                                   "c.htm"sv,
                                   "d.nv"sv,
                                   "e.csv"sv,
                                   "f.abx"sv,
                                   "g.pml"sv,
                                   "h.xtr"sv,
                                   "i.dat"sv,
                                   "j.html"sv,
                                   "k.txt"sv,
                                   "l.ldif"sv,
                                   "m.ldif"sv,
                                   "n.nv"sv};
    if (dice_.Percent(3)) {
        seen.PickedMissing = true;
        return fuzz::FuzzedProgram::Name("missing.txt");
    }
    const std::string_view name = dice_.Of(kNames);
    const std::string full = fuzz::FuzzedProgram::Name(name);
    std::error_code missing;
    const std::uintmax_t length = fs::file_size(full, missing);
    seen.Opened = full;
    seen.Content = {};
    if (missing || length > kLongFile || dice_.Percent(70)) {
        // Some books have another ending than their format has.
        const Kind kind = dice_.Percent(85) ? KindOf(name) : static_cast<Kind>(dice_.Below(kKinds));
        seen.Content = MakeBook(dice_, kind);
        if (kind != KindOf(name)) {
            seen.Content.Exact.reset();
        }
        if (to_extract && dice_.Percent(10)) {
            seen.Content.Text.append(32000 + dice_.Below(20000), 'x').append(" long@file ");
        }
        fuzz::FuzzedProgram::WriteFile(full, seen.Content.Text);
    }
    return full;
}

std::string ChancePerson::PickToSave() {
    constexpr std::array kNames = {"a.txt"sv,
                                   "b.ldif"sv,
                                   "c.htm"sv,
                                   "d.nv"sv,
                                   "g.pml"sv,
                                   "s.ldif"sv,
                                   "t.txt"sv,
                                   "u.html"sv,
                                   "v.nv"sv,
                                   "w.ldi"sv,
                                   "y.pml"sv,
                                   "z.htm"sv,
                                   "never.dat"sv};
    const std::string_view name = dice_.Of(kNames);
    seen.PickedMissing = seen.PickedMissing || SavingOf(name) == Saving::Never;
    const std::string full = fuzz::FuzzedProgram::Name(name);
    std::error_code missing;
    // A page that is no book ends the program; so it is mostly a new one.
    if (fs::file_size(full, missing) > kLongFile || dice_.Percent(80)) {
        fs::remove(full, missing);
    }
    return full;
}

std::string ChancePerson::ShowFileDialog(FileDialog& dialog) {
    const bool saves = dialog.Kind == DialogKind::Save || dialog.ForOutput;
    std::string name;
    if (wish.Pick) {
        name = *wish.Pick;
        wish.Pick.reset();
    } else if (!dice_.Percent(6)) {
        name = saves ? PickToSave() : PickToOpen(dialog.Title == "Open file for extraction");
    }
    if (saves && !name.empty()) {
        seen.Saved = name;
        seen.SaveWas = true;
    }
    if (dialog.HasChanged) {
        dialog.HasChanged(name);
    }
    picks.assign(1, name);
    return ScenarioPlatform::ShowFileDialog(dialog);
}

std::string ChancePerson::ActsIn(const Form& form) {
    std::string acts;
    const auto add = [&](const auto& choices, std::size_t count) {
        for (; count > 0; --count) {
            // The rarest of three.
            const FormAct* best = &dice_.Of(choices);
            for (int i = 0; i < 2; ++i) {
                const FormAct& other = dice_.Of(choices);
                best = tally_.Of(other.Handler) < tally_.Of(best->Handler) ? &other : best;
            }
            tally_.Count(best->Handler);
            acts.append(best->Statement).append(";");
        }
    };
    if (form.Name() == "Form2") {
        add(kPreferences, 5);
        if (wish.AsksAlways) {
            acts.append("set Form2.Option4 True;");
        }
        add(kPreferencesEnd, 1);
    } else if (form.Name() == "Form5") {
        acts.append(dice_.Percent(50) ? "set Form5.Text1 \"|\";" : "");
        add(kSeparatorEnd, 1);
    } else if (form.Name() == "Form3") {
        add(kChooser, 1);
    }
    return acts;
}

void ChancePerson::ShowForm(Form& form, Showing showing) {
    if (showing == Showing::Modal) {
        modals.push_front({std::string(form.Name()), ActsIn(form)});
    }
    seen.AutomationShows = seen.AutomationShows || form.Name() == "Form6";
    seen.ChooserCame = seen.ChooserCame || form.Name() == "Form3";
    ScenarioPlatform::ShowForm(form, showing);
}

void ChancePerson::HideForm(Form& form) {
    seen.AutomationShows = seen.AutomationShows && form.Name() != "Form6";
    ScenarioPlatform::HideForm(form);
}

void ChancePerson::CloseForm(Form& form) {
    seen.AutomationShows = seen.AutomationShows && form.Name() != "Form6";
    ScenarioPlatform::CloseForm(form);
}

void ChancePerson::ReportFailure(const RunTimeError& failure) {
    seen.Failures.push_back(failure.Number());
    ScenarioPlatform::ReportFailure(failure);
}

void ChancePerson::Repaint() {
    ++seen.Displays;
}

void ChancePerson::Yield() {
    ++seen.Displays;
    const auto press = [this](const char* handler) {
        tally_.Count(handler);
        at_yield.emplace_back(1, handler);
    };
    if (!at_yield.empty()) {
        // Something is being done already.
    } else if (seen.AutomationShows && dice_.Percent(20)) {
        press(dice_.Percent(50) ? "Form6.Form_Click" : "Form6.Form_Unload");
    } else if (dice_.Below(400) == 0) {
        press("Form1.cmdCancel_Click");
    }
    ScenarioPlatform::Yield();
}

}  // namespace orvik::depth
