// The window of the about text and of the future plans.

#pragma once

#include <string_view>
#include <vector>

#include "app/controls.h"
#include "app/form.h"

namespace orvik {

class FrmAbout : public Form {
 public:
    explicit FrmAbout(Module1& module) : Form(module, "frmAbout", "About Orvik") {
        Picture1.Visible = false;
    }

    std::vector<NamedControl> Controls() override;

    void ShowAbout();
    void ShowFuturePlans();
    void Command1_Click() { Hide(); }
    // The text is double-clicked.
    void Text1_DblClick();

    // Picture1 keeps the program's picture, Picture2 shows it.
    PictureBox Picture1{"logo"};
    PictureBox Picture2;
    TextBox Text1;
    Button Command1{"OK"};

 private:
    void ShowText(std::string_view caption, std::string_view text);
};

}  // namespace orvik
