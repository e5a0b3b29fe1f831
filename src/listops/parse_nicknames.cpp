// Parse nicknames: takes every line of the working text apart once more.

#include <new>
#include <string>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"

namespace orvik {
namespace {

void SplitWorkText(Module1& module) {
    SharedText text = std::exchange(module.WorkText, {});
    try {
        module.WorkText = module.SplitEntries(text, "txt");
    } catch (const std::bad_alloc&) {
        // There may have been no memory for undo to keep the text, either.
        module.WorkText = std::move(text);
        throw;
    }
}

// Lists what was split, and leaves edit mode.
void ListWorkText(Module1& module) {
    module.RefreshLists();
    if (module.EditMode) {
        module.form1.mnuEntEd_Click();
    }
    module.TextMode = mode::kNative;
}

}  // namespace

void Form1::mnuParse_Click() {
    SplitWorkText(module_);
    if (module_.TextMode == mode::kAscii) {
        // A text in the mode "ASCII" has always been split twice by this command.
        module_.WorkText = module_.SplitEntries(module_.WorkText, "txt");
        module_.TextMode = mode::kNative;
    }
    ListWorkText(module_);
}

void Form1::SplitIntoLists() {
    SplitWorkText(module_);
    module_.TextMode = mode::kNative;
    ListWorkText(module_);
}

}  // namespace orvik
