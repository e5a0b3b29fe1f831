#include "desktop/windows/late_windows.h"

#include <algorithm>
#include <iterator>

#include "desktop/windows/small_windows.h"

namespace orvik {

LateWindows::LateWindows(Program& program, Desktop& desktop, QWidget* owner) : desktop_(desktop) {
    const std::vector<Form*> all = program.Forms();
    std::copy_if(all.begin(), all.end(), std::back_inserter(forms_), [&](const Form* form) {
        return form != &program.form1;
    });
    desktop_.makeWhenAskedFor(forms_, [this, &program, owner](const Form& form) {
        made_.push_back(MakeWindow(program.module, form, desktop_, owner));
    });
}

LateWindows::~LateWindows() {
    desktop_.makeWhenAskedFor({}, {});
}

void LateWindows::makeAll() {
    for (const Form* const form : forms_) {
        static_cast<void>(desktop_.viewOf(*form));
    }
}

}  // namespace orvik
