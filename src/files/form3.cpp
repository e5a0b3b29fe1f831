#include "files/form3.h"

#include <utility>

#include "app/module1.h"

namespace orvik {
namespace {

// Longer texts are not put into the main window's text box when the chooser closes. It is not the
// limit of the text box, which then tells of a text between the two.
constexpr std::size_t kShownAtClosing = 32767;

}  // namespace

Form3::Form3(Module1& module) : Form(module, "Form3", "User input required") {}

std::vector<Form3::Row> Form3::Rows() {
    return {
        {"Command10", &Command10, "Command10_Click", &Form3::Command10_Click},
        {"Command9", &Command9, "Command9_Click", &Form3::Command9_Click},
        {"Command8", &Command8, "Command8_Click", &Form3::Command8_Click},
        {"Command7", &Command7, "Command7_Click", &Form3::Command7_Click},
        {"Command4", &Command4, "Command4_Click", &Form3::Command4_Click},
        {"Command3", &Command3, "Command3_Click", &Form3::Command3_Click},
        {"Command5", &Command5, "Command5_Click", &Form3::Command5_Click},
        {"Command2", &Command2, "Command2_Click", &Form3::Command2_Click},
        {"Command1", &Command1, "Command1_Click", &Form3::Command1_Click},
        {"Command6", &Command6, "Command6_Click", &Form3::Command6_Click},
    };
}

std::vector<NamedControl> Form3::Controls() {
    std::vector<NamedControl> controls = {{"Label1", &Label1}};
    for (const Row& row : Rows()) {
        controls.push_back({row.Name, row.Control});
    }
    return controls;
}

std::vector<NamedHandler> Form3::Handlers() {
    std::vector<NamedHandler> handlers = {
        {"Form_Load", [this] { Form_Load(); }},
        {"Form_Activate", [this] { Form_Activate(); }},
        {"Form_Unload", [this] { Unload(); }},
    };
    for (const Row& row : Rows()) {
        handlers.push_back({row.HandlerName, [this, click = row.Click] { (this->*click)(); }});
    }
    return handlers;
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

template <void (Module1::*Loader)()>
void Form3::LoadAs() {
    (module_.*Loader)();
    if (module_.WorkText.empty()) {
        module_.WorkText = saved_text_;
    } else {
        Unload();
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

// The caption keeps the name of the file that was not loaded.
void Form3::Command7_Click() {
    closed_by_button_ = true;
    module_.WorkText = module_.TextBeforeOpen;
    Unload();
}

void Form3::Command8_Click() {
    module_.ReopenFromChooser();
    closed_by_button_ = true;
    Unload();
}

void Form3::Command9_Click() {
    module_.ShowHelpTopic(1, "Stripped", "manopen.html");
}

}  // namespace orvik
