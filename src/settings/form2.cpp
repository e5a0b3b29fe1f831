#include "settings/form2.h"

#include <array>

#include "app/module1.h"
#include "app/text.h"
#include "formats/form5.h"
#include "settings/keys.h"

namespace orvik {
namespace {

constexpr std::string_view kDisabled = "Disabled";

constexpr std::string_view kSourceFilter =
    "Netscape 4.x|*.ldif|Netscape 3.0|*.htm|Internet Explorer 4.x|*.csv|Juno|*.nv|"
    "Text files|*.txt|All files|*.*";
constexpr std::string_view kDestinationFilter =
    "Netscape 4.x|*.ldif|Netscape 3.x|*.htm|Internet Explorer 4.x|*.csv|Juno|*.nv|"
    "Text|*.txt|All Files|*.*";

}  // namespace

std::vector<NamedControl> Form2::Controls() {
    return {
        {"SSTab1", &SSTab1},
        Clicked("Option1", &Option1, &Form2::Option1_Click),
        Clicked("Option2", &Option2, &Form2::Option2_Click),
        Clicked("Option3", &Option3, &Form2::Option3_Click),
        Clicked("Option4", &Option4, &Form2::Option4_Click),
        {"Frame1", &Frame1},
        {"Option5", &Option5},
        {"Option6", &Option6},
        {"Label1", &Label1},
        {"Text1(1)", &Text1},
        Clicked("Command3", &Command3, &Form2::Command3_Click),
        Clicked("Check1", &Check1, &Form2::Check1_Click),
        {"Frame2", &Frame2},
        Clicked("Check2", &Check2, &Form2::Check2_Click),
        {"Check3", &Check3},
        {"Check4", &Check4},
        {"Label2", &Label2},
        {"Option7", &Option7},
        {"Option8", &Option8},
        {"Text2", &Text2},
        Clicked("Command5", &Command5, &Form2::Command5_Click),
        {"Label3", &Label3},
        Clicked("Combo1", &Combo1, &Form2::Combo1_Click),
        {"Label4", &Label4},
        {"Combo2", &Combo2},
        {"Label5", &Label5},
        {"Label6", &Label6},
        {"Combo3", &Combo3},
        {"Label7", &Label7},
        {"Text3", &Text3},
        Clicked("Command6", &Command6, &Form2::Command6_Click),
        Clicked("Command1", &Command1, &Form2::Command1_Click),
        Clicked("Command2", &Command2, &Form2::Command2_Click),
        Clicked("Command4", &Command4, &Form2::Command4_Click),
    };
}

Form2::Form2(Module1& module) : Form(module, "Form2", "Orvik Preferences") {
    Combo1.Items = {std::string(step::kSortByAddress),
                    std::string(step::kSortByNickname),
                    std::string(step::kDone)};
    Combo2.Items = {std::string(step::kDone)};
}

void Form2::ResetControls() {
    for (const NamedControl& control : Controls()) {
        if (auto* const* const option = std::get_if<OptionButton*>(&control.Ref)) {
            (*option)->Value = false;
        } else if (auto* const* const box = std::get_if<CheckBox*>(&control.Ref)) {
            (*box)->Value = 0;
        }
    }
    Frame1.Visible = true;
    Frame2.Visible = false;
    Combo1.Text.clear();
    for (ComboBox* const combo : {&Combo2, &Combo3}) {
        combo->Text = kDisabled;
        combo->Enabled = false;
    }
    Label4.Enabled = false;
    Text1.SetText("");
}

void Form2::Form_Load() {
    ResetControls();
    LoadAutomation();
    if (IsFirstStart()) {
        Choose(Option2);
        Option2_Click();
        Choose(Option5);
    } else {
        LoadFormats();
    }
}

// After a failed automation the program starts, too, but what is stored stays what is proposed.
bool Form2::IsFirstStart() const {
    return module_.StartingUp && (module_.NumberOrZero(key::kSettings, "textSep") == 0 ||
                                  module_.NumberOrZero(key::kSettings, "Open") == 0);
}

// A value that is missing or no number counts as 0: the window must open whatever is stored.
void Form2::LoadAutomation() {
    const double first = module_.NumberOrZero(key::kSteps, "1");
    if (first == step::kOpenCode) {
        Choose(Option7);
    } else if (first == step::kExtractCode) {
        Choose(Option8);
    }
    SetCheck(Check1, module_.Setting("Auto") == "True", &Form2::Check1_Click);
    const double second = module_.NumberOrZero(key::kSteps, "2");
    Combo1.Text = second == step::kSortByNicknameCode  ? step::kSortByNickname
                  : second == step::kSortByAddressCode ? step::kSortByAddress
                                                       : step::kDone;
    Combo1_Click();
    SetCheck(Check2, module_.NumberOrZero(key::kSettings, "StartUp") == 1, &Form2::Check2_Click);
    Check3.Value = module_.NumberOrZero(key::kSettings, "aClose") == 1 ? 1 : 0;
    Check4.Value = module_.NumberOrZero(key::kSettings, "info") == 1 ? 1 : 0;
    Text2.SetText(module_.Setting("aOpenName"));
    Text3.SetText(module_.Setting("aSaveName"));
}

void Form2::LoadFormats() {
    struct Row {
        double Number;
        OptionButton* Option;
        void (Form2::*Click)();
    };
    const std::array formats = {Row{1, &Option1, &Form2::Option1_Click},
                                Row{2, &Option2, &Form2::Option2_Click},
                                Row{3, &Option3, &Form2::Option3_Click},
                                Row{4, &Option4, &Form2::Option4_Click}};
    const std::array separators = {Row{key::kByNewlines, &Option5, nullptr},
                                   Row{key::kByCommas, &Option6, nullptr}};
    const auto choose = [this](const auto& rows, double number) {
        for (const Row& row : rows) {
            if (row.Number == number) {
                Choose(*row.Option);
                if (row.Click != nullptr) {
                    (this->*row.Click)();
                }
                return true;
            }
        }
        module_.TellFailed(key::kCorrupt);
        return false;
    };
    if (choose(formats, module_.NumberOrZero(key::kSettings, "Open")) &&
        choose(separators, module_.NumberOrZero(key::kSettings, "textSep"))) {
        Text1.SetText(module_.Setting("Sep"));
        module_.PimSep = Text1.Text();
    }
}

void Form2::SetCheck(CheckBox& box, bool checked, void (Form2::*click)()) {
    box.Value = checked ? 1 : 0;
    (this->*click)();
}

void Form2::Form_KeyUp(int key_code) {
    if (key_code == kKeyF1) {
        Command4_Click();
    }
}

// The box's list is filled once and for all: the handler fills it anew only for
// a value that no checked box has.
void Form2::Check1_Click() {
    Frame2.Visible = Check1.Value == 1;
}

void Form2::Check2_Click() {
    Check4.Value = Check2.Value == 1 ? 0 : 1;
}

void Form2::Combo1_Click() {
    const bool sorts = Combo1.Text != step::kDone;
    Combo2.Enabled = sorts;
    Label4.Enabled = sorts;
    Combo2.Text = sorts ? step::kDone : kDisabled;
}

void Form1::mnuPrefs_Click() {
    module_.form2.Show(Showing::Modal);
}

void Form2::Command2_Click() {
    Unload();
}

void Form2::Command3_Click() {
    module_.form5.Show(Showing::Modal);
    Text1.SetText(module_.PimSep);
}

void Form2::Command4_Click() {
    module_.ShowHelpTopic(1, "Stripped", "preferences.html");
}

void Form2::Command5_Click() {
    FileDialog dialog{.Kind = DialogKind::Open,
                      .Title = "Select Source File",
                      .Filter = std::string(kSourceFilter),
                      .FileName = {}};
    const std::string name = module_.platform.ShowFileDialog(dialog);
    if (!name.empty()) {
        Text2.SetText(name);
    }
}

void Form2::Command6_Click() {
    FileDialog dialog{.Kind = DialogKind::Save,
                      .Title = "Select Destination File",
                      .Filter = std::string(kDestinationFilter),
                      .FileName = {},
                      .EndingIsFormat = true};
    const std::string name = module_.platform.ShowFileDialog(dialog);
    if (!name.empty()) {
        Text3.SetText(WithWholeEnding(name));
    }
}

}  // namespace orvik
