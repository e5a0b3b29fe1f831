// The open book as it is kept for the case that the program ends without saving it, and how it
// comes back.

#include "files/recovery_copy.h"

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"

namespace orvik {

RecoveryCopy Form1::CopyOfBook(std::string_view title, std::int64_t seconds) const {
    RecoveryCopy copy{.Mode = module_.TextMode,
                      .Caption = std::string(title),
                      .Box = Text1.Text(),
                      .EditMode = module_.EditMode,
                      .File = FileOf(title),
                      .Entries = module_.saved.Count(),
                      .Seconds = seconds};
    copy.Text = module_.WorkText;
    return copy;
}

void Form1::RestoreBook(const RecoveryCopy& copy) {
    module_.WorkText = copy.Text;
    module_.TextMode = copy.Mode;
    module_.Note = {};
    module_.saved.CompareWith(SavedBook::kNoFile);
    LdifCurrent = false;
    Caption = copy.Caption;
    Text1.Restore(copy.Box);
    ClearLists();
    // What was being edited need not be a list; the text comes back all the same.
    TrapFailure(
        [&] {
            if (!copy.Text.empty()) {
                module_.ListEntries(module_.InNativeForm());
            }
        },
        PassLackOfMemory);
}

void Form1::ResumeEditing(const RecoveryCopy& copy) {
    EnableEditCommands(true);
    ShowLists(false);
    StatusBar1.SetPanelText(1, "Edit Mode on");
    StatusBar1.SetPanelText(2, std::to_string(copy.Box.size()) + " characters");
}

}  // namespace orvik
