#include "work/main_commands.h"

#include <numeric>
#include <set>

#include "app/working_text.h"
#include "formats/endings.h"
#include "platform/system_files.h"
#include "settings/keys.h"

namespace orvik::test {
namespace {

void SelectAll(ListBox& list) {
    std::vector<std::size_t> rows(list.Items().size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    list.Select(std::move(rows));
    list.ListIndex = static_cast<std::ptrdiff_t>(list.Items().size()) - 1;
}

MainCommand Clicking(const std::string& handler, const std::string& file = {}) {
    return {file.empty() ? handler : handler + ", " + file, file, [handler](World& world) {
                world.Click(world.program.form1, handler);
            }};
}

MainCommand Event(const std::string& name, std::function<void(World&)> act) {
    return {name, {}, [act = std::move(act)](World& world) {
                world.module.RunEvent([&] { act(world); });
            }};
}

// One step of the automation on a file.
MainCommand Automated(const std::string& name, const std::string& file, int code) {
    return {"automation " + name + ", " + file, file, [code](World& world) {
                world.person.Set(key::kSettings, "aOpenName", world.Target);
                world.person.Set(key::kSettings, "aSaveName", world.Target);
                world.person.Set(key::kSteps, "1", std::to_string(code));
                world.person.Set(key::kSteps, "2", std::to_string(step::kDoneCode));
                world.Run([&] { world.module.RunAutomation(); });
            }};
}

void AddFileCommands(std::vector<MainCommand>& commands) {
    for (const Ending& ending : Endings()) {
        const std::string file = "book." + std::string(ending.Text);
        commands.push_back(Clicking("mnuOpen_Click", file));
        commands.push_back(Clicking("mnuMerge_Click", file));
        commands.push_back(Automated("opens", file, step::kOpenCode));
        if (ending.Way != Saving::Never) {
            commands.push_back(Clicking("mnuSave_Click", file));
            commands.push_back(Automated("saves", file, step::kSaveCode));
        }
    }
    for (const char* const handler : {"mnuOpen_Click", "mnuMerge_Click", "mnuSave_Click"}) {
        commands.push_back(Clicking(handler, "book.xyz"));
    }
    commands.push_back(Automated("opens", "nndbase.txt", step::kOpenCode));
    commands.push_back(Automated("saves", "nndbase.txt", step::kSaveCode));
    commands.push_back(Clicking("mnuExtract_Click", "mail.mbox"));
    commands.push_back(Automated("extracts", "mail.mbox", step::kExtractCode));
    commands.push_back({"handheld export, book.ldif", "book.ldif", [](World& world) {
                            world.Click(world.program.form4, "Command4_Click");
                        }});
}

void AddOtherEvents(std::vector<MainCommand>& commands) {
    commands.push_back(Event("type", [](World& world) {
        TextBox& box = world.program.form1.Text1;
        box.EditByUser(std::string(box.Text()) + "x", box.Text().size() + 1);
    }));
    commands.push_back(
        {"undo and redo", {}, [](World& world) {
             world.Run([&] { world.module.WorkText = std::string(world.module.WorkText) + 'x'; });
             world.module.history.Undo();
             world.module.history.Redo();
         }});
    commands.push_back(Event("copy the addresses", [](World& world) {
        world.program.form1.CopyAddresses(world.program.form1.List1);
    }));
    commands.push_back(Event("copy the entries", [](World& world) {
        world.program.form1.CopyEntries(world.program.form1.List1);
    }));
    commands.push_back(Event("change an entry", [](World& world) {
        if (world.program.form1.EntryRows() > 0) {
            world.program.form1.EditEntry(
                world.program.form1.EntryRows() - 1, "dd@books.example", "Di Dale");
        }
    }));
    commands.push_back(Event("delete every other entry", [](World& world) {
        std::vector<std::size_t> rows;
        for (std::size_t row = world.program.form1.EntryRows() % 2;
             row < world.program.form1.List1.Items().size();
             row += 2) {
            rows.push_back(row);
        }
        world.program.form1.DeleteEntries(rows);
    }));
    commands.push_back(Event("look for changes", [](World& world) {
        (void)world.module.saved.Differs();
        (void)world.module.history.EntriesBefore();
    }));
    commands.push_back(Event("choose a list", [](World& world) {
        world.Click(world.program.frm_select, "Command1_Click");
        SelectAll(world.program.form1.List3);
        world.Click(world.program.form1, "cmdDone_Click");
    }));
}

}  // namespace

std::string_view NameOf(Holding holding) {
    switch (holding) {
        case Holding::Native:
            return "native";
        case Holding::List:
            return "list";
        case Holding::EditText:
            return "edit text";
    }
    return {};
}

void Put(World& world, const std::string& text, Holding holding, const std::string& file) {
    world.person.clipboard = text;
    world.person.reply = Answer::Yes;
    if (!file.empty()) {
        world.Target = world.Name(file);
        world.WriteFile(file, text);
        world.person.picks = {world.Target};
        world.program.form4.Text1.SetText(world.Target);
        world.program.form4.Text2.SetText(world.Name("out.csv"));
    }
    Form1& form = world.program.form1;
    if (holding == Holding::EditText) {
        world.Click(form, "mnuEntEd_Click");
        world.module.RunEvent([&] { form.Text1.EditByUser(text, text.size()); });
        form.Text1.Select(0, form.Text1.Text().size());
        return;
    }
    world.module.WorkText = text;
    world.module.TextMode = holding == Holding::Native ? mode::kNative : mode::kAscii;
    if (text.size() <= kTextLimit) {
        form.Text1.Restore(text);
    }
    if (holding == Holding::Native) {
        world.module.RunEvent([&] { world.module.RefreshLists(); });
    }
    SelectAll(form.List1);
    SelectAll(form.List2);
}

std::vector<MainCommand> MainCommands() {
    const std::set<std::string> asking = {
        "mnuOpen_Click", "mnuMerge_Click", "mnuSave_Click", "mnuExtract_Click"};
    std::vector<MainCommand> commands;
    Person person;
    SystemFiles files;
    Program program(person, files);
    for (const NamedHandler& handler : program.form1.Handlers()) {
        if (asking.count(handler.Name) == 0 && handler.Name != "Form_Load") {
            commands.push_back(Clicking(handler.Name));
        }
    }
    AddFileCommands(commands);
    AddOtherEvents(commands);
    return commands;
}

}  // namespace orvik::test
