// The preferences: every stored setting on three tabs.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/controls.h"
#include "app/form.h"

namespace orvik {

class Form2 : public Form {
 public:
    explicit Form2(Module1& module);

    std::vector<NamedControl> Controls() override;

    // Whether the window asks for settings that were never stored.
    [[nodiscard]] bool IsFirstStart() const;

    void Form_Load() override;
    void Form_KeyUp(int key_code) override;

    // The buttons: OK, Cancel, the PIM separator, help, and the two browse buttons.
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    // What one control does to others.
    void Check1_Click();
    void Check2_Click();
    void Combo1_Click();
    void Option1_Click() { Frame1.Visible = true; }
    void Option2_Click() { Frame1.Visible = true; }
    void Option3_Click() { Frame1.Visible = false; }
    void Option4_Click() { Frame1.Visible = false; }

    TabControl SSTab1{{"File Formats", "Handheld PIM", "Automation"}};
    static constexpr std::size_t kAutomationTab = 2;

    // File Formats. The options of one group exclude each other. The heading is no control.
    static constexpr std::string_view kFormatsHeading = "How do you want to handle file formats?";
    OptionButton Option1{"Always use autodetect - assume an unknown file is a text file", 1};
    OptionButton Option2{"Ask the format of unknown files, otherwise use autodetect", 1};
    OptionButton Option3{"Ask the format of unknown files and text files, otherwise use autodetect",
                         1};
    OptionButton Option4{"Always ask the format", 1};
    Frame Frame1{"Text files"};
    OptionButton Option5{"Entries separated by newlines", 2};
    OptionButton Option6{"Entries separated by commas", 2};

    // Handheld PIM.
    Label Label1{"Te&xt between two values of an exported entry:"};
    TextBox Text1;
    Button Command3{"&Separator..."};

    // Automation.
    CheckBox Check1{"&Use Automation"};
    Frame Frame2{"Automation Properties"};
    CheckBox Check2{"Run on &Startup"};
    CheckBox Check3{"C&lose Orvik when done"};
    CheckBox Check4{"&Display Information Window"};
    Label Label2{"Step 1"};
    OptionButton Option7{"Op&en", 3};
    OptionButton Option8{"Ex&tract", 3};
    TextBox Text2;
    Button Command5{"&Browse"};
    Label Label3{"Step 2"};
    ComboBox Combo1;
    Label Label4{"Step 3"};
    ComboBox Combo2;
    Label Label5{"Step 4"};
    Label Label6{"Step 5"};
    ComboBox Combo3;
    Label Label7{"Save File"};
    TextBox Text3;
    Button Command6{"B&rowse"};

    Button Command1{"OK"};
    Button Command2{"Cancel"};
    Button Command4{"Help"};

 private:
    void ResetControls();
    void LoadAutomation();
    void LoadFormats();
    void SetCheck(CheckBox& box, bool checked, void (Form2::*click)());
    bool SaveFormats();
    void SaveAutomation();
};

}  // namespace orvik
