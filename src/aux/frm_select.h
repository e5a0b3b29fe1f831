// The small window that begins the selection of addresses for a list.

#pragma once

#include <vector>

#include "app/controls.h"
#include "app/form.h"

namespace orvik {

class FrmSelect : public Form {
 public:
    explicit FrmSelect(Module1& module);

    std::vector<NamedControl> Controls() override;

    void Command1_Click();

    Button Command1{"&Select Addresses"};
    // Neither does anything; the window's close box closes it.
    Button Command2{"Select &All"};
    Button Command3{"&Cancel"};
    TextBox Text1;
};

}  // namespace orvik
