// The sort commands.

#include <string>

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

}  // namespace

template <void (Module1::*Sort)()>
void Form1::SortBy() {
    if (module_.WorkText.empty()) {
        return;
    }
    if (module_.ItemCount > kMostSorted) {
        module_.TellTooManyToSort();
        return;
    }
    (module_.*Sort)();
    ShowTextIfShort();
    module_.RefreshLists();
}

void Form1::cmdEmail_Click() {
    SortBy<&Module1::SortByAddress>();
}

void Form1::cmdNick_Click() {
    SortBy<&Module1::SortByNickname>();
}

void Module1::TellTooManyToSort() {
    Tell(
        "Orvik cannot sort more than 500 addresses. If you need to sort this many addresses please "
        "use your addessbook program's sort function.",
        "File too large");
}

void Module1::SortByAddress() {
    if (BeginSort(TextNonexistant("An Error type"), "Error")) {
        SortWorkText(SortKey::Address);
    }
}

void Module1::SortByNickname() {
    if (BeginSort(TextNonexistant("An Error has occured because an error type"), kTitle)) {
        SortWorkText(SortKey::Nickname);
    }
}

bool Module1::BeginSort(std::string_view no_text, std::string_view title) {
    if (TextMode == mode::kAscii) {
        WorkText = SplitEntries(WorkText, "txt");
    } else if (TextMode != mode::kNative) {
        Tell(no_text, title);
        return false;
    }
    return true;
}

void Module1::SortWorkText(SortKey key) {
    form1.StatusBar1.SetPanelText(1, "Alphabetizing");
    form1.ProgressBar1.Visible = true;
    platform.Repaint();
    const std::optional<SortedBlocks> sorted = SortEntries(WorkText, key);
    if (!sorted) {
        TellTooManyToSort();
        return;
    }
    WorkText.clear();
    AppendSorted(sorted->Addresses, 0);
    WorkText.append(kNick).append(kCrLf);
    AppendSorted(sorted->Nicknames, kSlots / 10);
    form1.StatusBar1.SetPanelText(1, "Ready");
    form1.ProgressBar1.Visible = false;
    TextMode = mode::kNative;
}

// Half of the display belongs to each block; it counts the slots, not the lines.
void Module1::AppendSorted(std::string_view block, int percent_done) {
    WorkText.append(block);
    for (int slot = kSlotsPerStep; slot <= kSlots; slot += kSlotsPerStep) {
        const int percent = percent_done + slot / 10;
        form1.ProgressBar1.Value = percent;
        form1.StatusBar1.SetPanelText(1, "Alphabetizing..." + std::to_string(percent) + "%");
        platform.Repaint();
    }
}

}  // namespace orvik
