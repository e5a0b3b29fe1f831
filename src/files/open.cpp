// Open: reads a whole file into the working text and loads it by the ending of its name.

#include <functional>
#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "files/form3.h"

namespace orvik {
namespace {

constexpr std::string_view kOpenFilter =
    "Netscape 4.x|*.ldif|Netscape 3.0|*.htm|Internet Explorer 4.x|*.csv|Juno|*.nv|"
    "WordPerfect 8|*.abx|Pegasus Mail|*.pml|Text files|*.txt|All files|*.*";

// Runs one statement of Open: a failure of it is told, and the caller goes on.
void GoOn(Module1& module, const std::function<void()>& statement) {
    TrapFailure(statement, [&](const RunTimeError& failure) { module.Tell(failure); });
}

// Whether the book of a file was loaded: no loader refused it, or left it to the chooser.
bool IsLoaded(Module1& module, const std::string& name) {
    const bool refused = module.WorkText.empty() && module.form1.Caption == module.OldCaption;
    return !refused && module.form1.Caption == Form1::CaptionOf(name) && !module.form3.Visible();
}

// Returns false if the user keeps the book that is open.
bool BeginOpen(Module1& module) {
    GoOn(module, [&] { module.TextBeforeOpen = module.WorkText; });
    module.NoteBeforeOpen = module.Note;
    module.JustStarted = false;
    bool go_on = true;
    if (!module.WorkText.empty()) {
        GoOn(module, [&] { go_on = module.form1.OfferSave("Save before opening?"); });
    }
    return go_on;
}

void ReadAndLoad(Module1& module, const std::string& name) {
    module.OldCaption = module.form1.Caption;
    module.form1.Caption = Form1::CaptionOf(name);
    GoOn(module, [&] { module.File1.OpenForInput(name); });
    module.form1.StatusBar1.SetPanelText(1, "Opening . . .");
    bool was_read = false;
    GoOn(module, [&] {
        module.ReadFile(name);
        was_read = true;
    });
    module.File1.Close();
    if (module.OpenMode == kAskAlways) {
        GoOn(module, [&] { module.ChooseFormat(Showing::Modeless); });
        return;
    }
    bool by_loader = false;
    GoOn(module, [&] { by_loader = module.LoadByEnding(name, true); });
    if (!was_read) {
        // What was loaded is the old book once more.
        module.Note = module.NoteBeforeOpen;
    }
    module.form1.LdifCurrent = false;
    module.form1.StatusBar1.SetPanelText(1, "Ready");
    GoOn(module, [&] { module.form1.Text1.SetText(module.WorkText); });
    if (was_read && by_loader && IsLoaded(module, name)) {
        module.saved.Mark(name);
    }
}

}  // namespace

void Form1::mnuOpen_Click() {
    if (!BeginOpen(module_)) {
        return;
    }
    const std::string name = ShowFileDialog({.Kind = DialogKind::Open,
                                             .Title = "Open file for conversion",
                                             .Filter = std::string(kOpenFilter),
                                             .Flags = kFileMustExist | kHideReadOnly,
                                             .FileName = {},
                                             .EndingIsFormat = true});
    if (!name.empty()) {
        ReadAndLoad(module_, name);
    }
}

void Form1::OpenBook(const std::string& name) {
    if (BeginOpen(module_)) {
        CommonDialog1.FileName = name;
        ReadAndLoad(module_, name);
    }
}

}  // namespace orvik
