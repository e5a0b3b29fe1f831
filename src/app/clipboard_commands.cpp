// The clipboard commands for plain text, Clear, Delete, and the two lists in step.

#include <string>

#include "app/form1.h"
#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/text.h"

namespace orvik {
namespace {

// Makes the row clicked in one list the only selected row of the other. A row that the other list
// does not have leaves its selection as it is.
void Follow(const ListBox& clicked, ListBox& other) {
    if (clicked.ListIndex >= 0) {
        TrapFailure([&] { other.Select({static_cast<std::size_t>(clicked.ListIndex)}); },
                    [](const RunTimeError&) {});
    }
}

// The item of a row, empty where the list does not reach that far.
std::string_view ItemAt(const ListBox& list, std::size_t row) {
    return row < list.Items().size() ? list.Items()[row] : std::string_view{};
}

}  // namespace

void Form1::CopyAddresses(const ListBox& list) {
    std::string lines;
    for (const std::size_t row : list.Selected()) {
        lines.append(ItemAt(List1, row)).append(kCrLf);
    }
    module_.platform.SetClipboardText(lines);
}

void Form1::CopyEntries(const ListBox& list) {
    std::string lines;
    for (const std::size_t row : list.Selected()) {
        lines.append("\"").append(ItemAt(List2, row)).append("\" <");
        lines.append(ItemAt(List1, row)).append(">").append(kCrLf);
    }
    module_.platform.SetClipboardText(lines);
}

void Form1::mnuBoxCopy_Click() {
    if (module_.IsListed(module_.WorkText)) {
        mnuConvert_Click();
        mnuUn_Click();
    }
    module_.platform.SetClipboardText(module_.WorkText);
}

void Form1::mnuSelCopy_Click() {
    module_.platform.SetClipboardText(Text1.SelText());
}

void Form1::mnuPaste_Click() {
    Text1.ReplaceSelection(module_.platform.ClipboardText());
}

void Form1::mnuDel_Click() {
    Text1.ReplaceSelection("");
}

void Form1::mnuClear_Click() {
    if (!OfferSave("Save before clearing?")) {
        return;
    }
    Text1.SetText("");
    module_.Note = {};
    Caption = kTitle;
}

bool Form1::BeginPaste(std::string& pasted) {
    if (!OfferSave("Save before clearing?")) {
        return false;
    }
    pasted = module_.platform.ClipboardText();
    module_.WorkText.clear();
    return true;
}

void Form1::EndPaste() {
    module_.RefreshLists();
    Caption = kTitle;
}

void Form1::mnuClearPaste_Click() {
    std::string pasted;
    if (!BeginPaste(pasted)) {
        return;
    }
    module_.NoteReading(pasted, {});
    module_.WorkText = std::move(pasted);
    module_.TextMode = mode::kAscii;
    ShowTextIfShort();
    // An empty clipboard has made the mode "none".
    module_.TextMode = mode::kAscii;
    EndPaste();
}

void Form1::List1_Click() {
    Follow(List1, List2);
}

void Form1::List2_Click() {
    Follow(List2, List1);
}

}  // namespace orvik
