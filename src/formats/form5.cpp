#include "formats/form5.h"

#include "app/module1.h"

namespace orvik {

std::vector<NamedControl> Form5::Controls() {
    return {
        {"Label1", &Label1},
        {"Text1", &Text1},
        Clicked("Command1", &Command1, &Form5::Command1_Click),
        Clicked("Command2", &Command2, &Form5::Command2_Click),
    };
}

void Form5::Form_Load() {
    Text1.SetText(module_.PimSep);
}

void Form5::Command1_Click() {
    module_.PimSep = Text1.Text();
    module_.Save("Sep", module_.PimSep);
    Unload();
}

void Form5::Command2_Click() {
    Unload();
}

}  // namespace orvik
