// The sort commands.

#include <string>
#include <utility>

#include "app/form1.h"
#include "app/module1.h"
#include "app/text.h"
#include "app/working_text.h"
#include "listops/sort_entries.h"

namespace orvik {
namespace {

// The slots that the result is put together from, whether they are filled or not.
constexpr int kSlots = 500;
constexpr int kSlotsPerStep = 20;

void TellTooManyToSort(Module1& module) {
    module.TellFailed(
        "Orvik cannot sort more than 500 addresses. If you need to sort this many addresses please "
        "use your addessbook program's sort function.",
        "File too large");
}

// Half of the display belongs to each block; it counts the slots, not the lines.
void AppendSorted(Module1& module, std::string& text, std::string_view block, int percent_done) {
    text.append(block);
    for (int slot = kSlotsPerStep; slot <= kSlots; slot += kSlotsPerStep) {
        const int percent = percent_done + slot / 10;
        module.form1.ProgressBar1.Value = percent;
        module.form1.StatusBar1.SetPanelText(1, "Alphabetizing..." + std::to_string(percent) + "%");
        module.platform.Repaint();
    }
}

// Brings the working text into the Native form, or tells that there is none.
bool BeginSort(Module1& module, std::string_view no_text, std::string_view title) {
    if (module.IsList(module.WorkText)) {
        module.WorkText = module.SplitEntries(module.WorkText, "txt");
    } else if (!module.IsListed(module.WorkText)) {
        module.TellFailed(no_text, title);
        return false;
    }
    return true;
}

void SortWorkText(Module1& module, SortKey key) {
    module.form1.StatusBar1.SetPanelText(1, "Alphabetizing");
    module.form1.ProgressBar1.Visible = true;
    module.platform.Repaint();
    const std::optional<SortedBlocks> sorted = SortEntries(module.WorkText, key);
    if (!sorted) {
        TellTooManyToSort(module);
        return;
    }
    std::string text;
    AppendSorted(module, text, sorted->Addresses, 0);
    text.append(kNick).append(kCrLf);
    AppendSorted(module, text, sorted->Nicknames, kSlots / 10);
    module.WorkText = std::move(text);
    module.form1.StatusBar1.SetPanelText(1, "Ready");
    module.form1.ProgressBar1.Visible = false;
    module.TextMode = mode::kNative;
}

// What both commands do around their sort.
void SortBy(Module1& module, void (Module1::*sort)()) {
    if (module.WorkText.empty()) {
        return;
    }
    if (module.ItemCount > kMostSorted) {
        TellTooManyToSort(module);
        return;
    }
    (module.*sort)();
    module.form1.ShowTextIfShort();
    module.RefreshLists();
}

}  // namespace

void Form1::cmdEmail_Click() {
    SortBy(module_, &Module1::SortByAddress);
}

void Form1::cmdNick_Click() {
    SortBy(module_, &Module1::SortByNickname);
}

void Form1::mnuAlphAddr_Click() {
    cmdEmail_Click();
}

void Form1::mnuAlphNick_Click() {
    cmdNick_Click();
}

void Module1::SortByAddress() {
    if (BeginSort(*this, TextNonexistant("An Error type"), "Error")) {
        SortWorkText(*this, SortKey::Address);
    }
}

void Module1::SortByNickname() {
    if (BeginSort(*this, TextNonexistant("An Error has occured because an error type"), kTitle)) {
        SortWorkText(*this, SortKey::Nickname);
    }
}

}  // namespace orvik
