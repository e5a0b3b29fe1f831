#include "files/form3.h"

#include <new>
#include <utility>

#include "app/module1.h"
#include "app/scope.h"

namespace orvik {
namespace {

// Longer texts are not put into the main window's text box when the chooser closes. It is not the
// limit of the text box, which then tells of a text between the two.
constexpr std::size_t kShownAtClosing = 32767;

}  // namespace

Form3::Form3(Module1& module) : Form(module, "Form3", "User input required") {}

std::vector<NamedControl> Form3::Controls() {
    return {
        {"Label1", &Label1},
        Clicked("Command10", &Command10, &Form3::Command10_Click),
        Clicked("Command9", &Command9, &Form3::Command9_Click),
        Clicked("Command8", &Command8, &Form3::Command8_Click),
        Clicked("Command7", &Command7, &Form3::Command7_Click),
        Clicked("Command4", &Command4, &Form3::Command4_Click),
        Clicked("Command3", &Command3, &Form3::Command3_Click),
        Clicked("Command5", &Command5, &Form3::Command5_Click),
        Clicked("Command2", &Command2, &Form3::Command2_Click),
        Clicked("Command1", &Command1, &Form3::Command1_Click),
        Clicked("Command6", &Command6, &Form3::Command6_Click),
    };
}

std::vector<NamedHandler> Form3::OtherHandlers() {
    return {{"Form_Activate", [this] { Form_Activate(); }}};
}

void Form3::Form_Load() {
    saved_text_ = module_.WorkText;
}

void Form3::Form_Activate() {
    closed_by_button_ = false;
}

bool Form3::Form_Unload() {
    if (!closed_by_button_) {
        module_.form1.StatusBar1.SetPanelText(1, "Ready");
        if (module_.WorkText.size() < kShownAtClosing) {
            module_.form1.Text1.SetText(module_.WorkText);
        }
    }
    return true;
}

void Form3::Form_KeyUp(int key_code) {
    if (key_code == kKeyF1) {
        Command9_Click();
    }
}

// Loads the working text; the form goes unless the loader refused it.
template <void (Module1::*Loader)()>
void Form3::LoadAs() {
    const OnFailure forget([this] { module_.Note.LeftOut = {}; });
    (module_.*Loader)();
    if (module_.WorkText.empty()) {
        module_.WorkText = saved_text_;
        return;
    }
    Unload();
    // The chooser of a merge loads one half of a book that has another name.
    const std::string& name = module_.form1.CommonDialog1.FileName;
    if (module_.form1.Caption == Form1::CaptionOf(name)) {
        module_.saved.Mark(name);
    }
}

void Form3::Command1_Click() {
    LoadAs<&Module1::OpenTextList>();
}
void Form3::Command2_Click() {
    LoadAs<&Module1::OpenNetscape4>();
}
void Form3::Command3_Click() {
    LoadAs<&Module1::OpenNetscape3>();
}
void Form3::Command4_Click() {
    LoadAs<&Module1::OpenCsv>();
}
void Form3::Command5_Click() {
    LoadAs<&Module1::OpenJuno>();
}
void Form3::Command6_Click() {
    LoadAs<&Module1::OpenPegasus>();
}
void Form3::Command10_Click() {
    LoadAs<&Module1::OpenWordPerfect>();
}

void Form3::Command7_Click() {
    closed_by_button_ = true;
    module_.TakeBackOpening();
    Unload();
}

void Form3::Command8_Click() {
    module_.ReopenFromChooser();
    closed_by_button_ = true;
    Unload();
}

void Module1::ChooseFormat(Showing showing) {
    try {
        form3.Show(showing);
    } catch (const std::bad_alloc&) {
        // Nobody can choose, so what was read has no format.
        TakeBackOpening();
        throw;
    }
}

void Module1::TakeBackOpening() {
    WorkText = TextBeforeOpen;
    Note = NoteBeforeOpen;
}

void Form3::Command9_Click() {
    module_.ShowHelpTopic(1, "Stripped", "manopen.html");
}

}  // namespace orvik
