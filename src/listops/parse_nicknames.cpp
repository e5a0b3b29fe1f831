// Parse nicknames: takes every line of the working text apart once more.

#include <string>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"

namespace orvik {

void Form1::mnuParse_Click() {
    const std::string text = std::exchange(module_.WorkText, {});
    module_.WorkText = module_.SplitEntries(text, "txt");
    module_.RefreshLists();
    if (module_.EditMode) {
        mnuEntEd_Click();
    }
    module_.TextMode = mode::kNative;
}

}  // namespace orvik
