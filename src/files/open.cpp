// Open: reads a whole file into the working text and loads it by the ending of its name.

#include <functional>
#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"

namespace orvik {
namespace {

constexpr std::string_view kOpenFilter =
    "Netscape 4.x|*.ldif|Netscape 3.0|*.htm|Internet Explorer 4.x|*.csv|Juno|*.nv|"
    "WordPerfect 8|*.abx|Pegasus Mail|*.pml|Text files|*.txt|All files|*.*";

}  // namespace

void Form1::Guarded(const std::function<void()>& statement) {
    Guard(statement, [this](const RunTimeError& failure) {
        module_.Tell(std::string("Error: ") + failure.what(), std::to_string(failure.Number()));
    });
}

bool Form1::BeginOpen() {
    Guarded([&] { module_.TextBeforeOpen = module_.WorkText; });
    module_.JustStarted = false;
    bool go_on = true;
    if (!module_.WorkText.empty()) {
        Guarded([&] { go_on = OfferSave("Save before opening?"); });
    }
    return go_on;
}

void Form1::mnuOpen_Click() {
    if (!BeginOpen()) {
        return;
    }
    const std::string name = ShowFileDialog({.Kind = DialogKind::Open,
                                             .Title = "Open file for conversion",
                                             .Filter = std::string(kOpenFilter),
                                             .Flags = kFileMustExist | kHideReadOnly,
                                             .FileName = {}});
    if (!name.empty()) {
        ReadAndLoad(name);
    }
}

void Form1::OpenBook(const std::string& name) {
    if (BeginOpen()) {
        CommonDialog1.FileName = name;
        ReadAndLoad(name);
    }
}

void Form1::ReadAndLoad(const std::string& name) {
    module_.OldCaption = Caption;
    Caption = std::string(kTitle) + " - " + name;
    Guarded([&] { module_.File1.OpenForInput(name); });
    StatusBar1.SetPanelText(1, "Opening . . .");
    Guarded([&] { module_.WorkText = module_.File1.Read(module_.File1.Length()); });
    module_.File1.Close();
    if (module_.OpenMode == kAskAlways) {
        Guarded([&] { module_.form3.Show(Showing::Modeless); });
        return;
    }
    Guarded([&] { module_.LoadByEnding(name, true); });
    LdifCurrent = false;
    StatusBar1.SetPanelText(1, "Ready");
    Guarded([&] { Text1.SetText(module_.WorkText); });
}

}  // namespace orvik
