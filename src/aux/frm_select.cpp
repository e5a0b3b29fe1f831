#include "aux/frm_select.h"

#include <string>

#include "app/module1.h"

namespace orvik {

FrmSelect::FrmSelect(Module1& module) : Form(module, "frmSelect", "Generate List?") {
    Text1.SetText(
        "Press \"Select Addresses\" to number the entries of the book. Then select the numbers of "
        "the entries that you want beside the addresses, and press \"Done\" under them: a list of "
        "these entries is shown.");
}

std::vector<NamedControl> FrmSelect::Controls() {
    return {
        Clicked("Command1", &Command1, &FrmSelect::Command1_Click),
        {"Command2", &Command2, [] {}},
        {"Command3", &Command3, [] {}},
        {"Text1", &Text1},
    };
}

void FrmSelect::Command1_Click() {
    Form1& main = module_.form1;
    const std::size_t count = main.List1.Items().size();
    if (count == 0) {
        module_.Tell("ListCount evaluates to Zero", "No Information Available");
        Unload();
        return;
    }
    main.List3.Visible = true;
    main.cmdDone.Visible = true;
    // An extraction leaves it in the middle of the window.
    main.cmdCancel.Left = main.List2.Left;
    main.cmdCancel.Top = 0;
    main.cmdCancel.Visible = true;
    // A second press adds a second run of numbers.
    for (std::size_t i = 1; i <= count; ++i) {
        main.List3.AddItem(std::to_string(i));
    }
    Unload();
}

}  // namespace orvik
