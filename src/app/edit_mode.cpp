// Edit mode, and the text box that keeps the working text within its limit.

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/working_text.h"

namespace orvik {

void Form1::mnuEntEd_Click() {
    if (module_.EditMode) {
        LeaveEditMode();
    } else {
        EnterEditMode();
    }
}

// On and off, twice: each switch brings text and lists in step, as loading a Juno book needs.
void Form1::ToggleEditModeFourTimes() {
    for (int i = 0; i < 4; ++i) {
        mnuEntEd_Click();
    }
}

void Form1::EnterEditMode() {
    if (module_.WorkText.size() > kTextLimit) {
        module_.TellTooMuchText();
        return;
    }
    EnableEditCommands(true);
    if (module_.IsListed(module_.WorkText) && !module_.WorkText.empty()) {
        // The way through LDIF and back writes each entry as "NICK" <ADDR>.
        mnuConvert_Click();
        mnuUn_Click();
    }
    ShowLists(false);
    StatusBar1.SetPanelText(1, "Edit Mode on");
    Text1.SetText(module_.WorkText);
}

void Form1::LeaveEditMode() {
    EnableEditCommands(false);
    ShowLists(true);
    StatusBar1.SetPanelText(1, "Ready");
    if (module_.WorkText.empty()) {
        ClearLists();
    } else {
        module_.RefreshLists();
    }
    module_.TextMode = mode::kNative;
}

void Form1::ClearLists() {
    List1.Clear();
    List2.Clear();
    StatusBar1.SetPanelText(2, "0 items");
}

void Form1::EnableEditCommands(bool editing) {
    module_.EditMode = editing;
    mnuEntEd.Checked = editing;
    mnuSelCopy.Enabled = editing;
    mnuClear.Enabled = editing;
    mnuPaste.Enabled = editing;
    mnuDel.Enabled = editing;
    // Text that is being edited cannot be sorted, parsed or converted.
    mnuOrvik.Enabled = !editing;
}

void Form1::ShowLists(bool visible) {
    List1.Visible = visible;
    List2.Visible = visible;
    cmdEmail.Visible = visible;
    cmdNick.Visible = visible;
}

void Form1::Text1_Change() {
    if (!Text1.Text().empty()) {
        if (Text1.Text().size() > kTextLimit) {
            module_.TellTooMuchText();
            Text1.SetText(module_.WorkText);
        } else if (module_.TextMode == mode::kNone) {
            module_.TextMode = mode::kAscii;
        }
    }
    if (Text1.Text().empty()) {
        LdifCurrent = false;
        module_.TextMode = mode::kNone;
    }
    if (module_.EditMode) {
        StatusBar1.SetPanelText(2, std::to_string(Text1.Text().size()) + " characters");
    }
    module_.WorkText = Text1.Text();
}

}  // namespace orvik
