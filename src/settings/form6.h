// What the automation shows while it runs.

#pragma once

#include <vector>

#include "app/controls.h"
#include "app/form.h"

namespace orvik {

class Form6 : public Form {
 public:
    explicit Form6(Module1& module) : Form(module, "Form6", "Orvik Automated") {}

    std::vector<NamedControl> Controls() override { return {{"Label1", &Label1}}; }

    void Form_Load() override;
    // A click asks whether to stop the extraction.
    void Form_Click() override;

    Label Label1{"Orvik Automation: Ready"};

 private:
    std::vector<NamedHandler> OtherHandlers() override;
};

}  // namespace orvik
