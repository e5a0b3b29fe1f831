// Changing single entries, which the lists' own menu offers.

#include <functional>
#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/text.h"
#include "listops/change_entries.h"

namespace orvik {
namespace {

// Puts another text, made of the Native form, in the working text's place: one step to undo.
void ChangeText(Module1& module,
                std::string_view title,
                const std::function<std::string(std::string_view native)>& change) {
    module.history.Run(title, [&] {
        if (module.IsList(module.WorkText)) {
            module.WorkText = module.SplitEntries(module.WorkText, "txt");
        }
        module.WorkText = change(module.WorkText);
        module.TextMode = mode::kNative;
        Form1& form = module.form1;
        form.LdifCurrent = false;
        if (module.WorkText.empty()) {
            form.ClearLists();
            module.Note = {};
            form.Text1.SetText("");
        } else {
            module.RefreshLists();
            form.ShowTextIfShort();
        }
    });
}

}  // namespace

std::size_t Form1::EntryRows() const {
    std::size_t rows = 0;
    // A list without an entry cannot be split.
    TrapFailure(
        [&] {
            const SharedText text = module_.InNativeForm();
            rows = text.empty() ? 0 : CountRows(text);
        },
        [](const RunTimeError&) {});
    return rows;
}

bool Form1::EditEntry(std::size_t row, std::string_view address, std::string_view nickname) {
    if (FaultOf(address, nickname, module_.textSep) != EntryFault::None) {
        return false;
    }
    ChangeText(module_, "Edit entry", [&](std::string_view native) {
        return ReplaceRow(native, row, address, nickname);
    });
    return true;
}

void Form1::DeleteEntries(const std::vector<std::size_t>& rows) {
    ChangeText(
        module_, kDeleteEntries, [&](std::string_view native) { return DeleteRows(native, rows); });
}

}  // namespace orvik
