// The small window that edits the separator of the handheld export.

#pragma once

#include <vector>

#include "app/controls.h"
#include "app/form.h"

namespace orvik {

class Form5 : public Form {
 public:
    explicit Form5(Module1& module) : Form(module, "Form5", "PIM Separator") {}

    std::vector<NamedControl> Controls() override;

    void Form_Load() override;
    void Command1_Click();
    void Command2_Click();

    Label Label1{"&Text between two values of an exported entry:"};
    TextBox Text1;
    Button Command1{"OK"};
    Button Command2{"Cancel"};
};

}  // namespace orvik
