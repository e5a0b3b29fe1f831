// The handheld export: from an LDIF file to a text file, without touching the working text.

#pragma once

#include <string>
#include <vector>

#include "app/controls.h"
#include "app/form.h"

namespace orvik {

class Form4 : public Form {
 public:
    explicit Form4(Module1& module) : Form(module, "Form4", "Netscape to PIM") {}

    std::vector<NamedControl> Controls() override;

    // The close box goes back to the main window, as the back button does.
    bool Form_Unload() override;
    // Any key brings the help.
    void Form_KeyUp(int key_code) override;
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    // Exports the file named in Text1 to the one named in Text2. reading_is_over tells of which of
    // the two a failure is. Errors: those of the files.
    void ConvertFile(bool& reading_is_over);

    Label Label1{"&Netscape 4.x address book (LDIF):"};
    TextBox Text1;
    Button Command1{"&Select..."};
    Label Label2{"&Output file:"};
    TextBox Text2;
    Button Command2{"S&elect..."};
    // Its width is the progress; this one when all is done, in twips.
    static constexpr double kFullWidth = 1215;
    PictureBox Picture2;
    Button Command4{"&Convert"};
    Button Command3{"&Help"};
    Button Command5{"&Back"};
    // What the last conversion did, for the window to show beside the bar; empty before one is
    // done.
    std::string Result;

 private:
    void ShowButtons(bool visible);
    void Pick(std::string_view filter, bool for_output, TextBox& box);
};

}  // namespace orvik
