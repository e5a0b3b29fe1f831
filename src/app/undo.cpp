#include "app/undo.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/module1.h"
#include "app/run_time_error.h"
#include "app/scope.h"

namespace orvik {

void UndoHistory::Run(std::string_view title, const std::function<void()>& command) {
    if (running_) {
        module_.RunEvent(command);
        return;
    }
    const Mark mark(running_);
    if (before_.empty()) {
        // Without the memory for a copy the command runs all the same, and cannot be undone.
        TrapFailure([&] { before_.push_back(Capture(title)); }, [](const RunTimeError&) {});
    }
    module_.RunEvent(command);
    ++commands_;
    last_can_be_undone_ = false;
    if (module_.EditMode) {
        ++text_revision_;
        return;
    }
    const bool changed = before_.empty() || before_.back().WorkText != module_.WorkText;
    if (changed) {
        ++text_revision_;
    }
    if (!before_.empty() && changed) {
        undo_.splice(undo_.end(), before_);
        Limit(undo_);
        redo_.clear();
        last_can_be_undone_ = true;
    }
    before_.clear();
}

void UndoHistory::Undo() {
    Step(undo_, redo_);
}

void UndoHistory::Redo() {
    Step(redo_, undo_);
}

std::string_view UndoHistory::UndoTitle() const {
    return undo_.empty() || module_.EditMode ? std::string_view{} : undo_.back().Title;
}

std::size_t UndoHistory::EntriesBefore() const {
    return undo_.empty() ? 0 : module_.Entries(undo_.back().WorkText, undo_.back().TextMode).Count;
}

std::string_view UndoHistory::RedoTitle() const {
    return redo_.empty() || module_.EditMode ? std::string_view{} : redo_.back().Title;
}

void UndoHistory::Step(States& from, States& to) {
    if (from.empty() || module_.EditMode || running_) {
        return;
    }
    ++commands_;
    ++text_revision_;
    last_can_be_undone_ = false;
    to.push_back(Capture(from.back().Title));
    Limit(to);
    Restore(std::move(from.back()));
    from.pop_back();
}

UndoHistory::State UndoHistory::Capture(std::string_view title) const {
    const Form1& form = module_.form1;
    const auto capture = [](const ListBox& list) {
        return List{list.Items(), list.SelectedRows(), list.ListIndex};
    };
    return {
        .Title = std::string(title),
        .WorkText = module_.WorkText,
        .TextMode = module_.TextMode,
        .Caption = form.Caption,
        .Note = module_.Note,
        .Text1 = form.Text1.Text(),
        .List1 = capture(form.List1),
        .List2 = capture(form.List2),
        .ItemCount = module_.ItemCount,
        .ItemText = form.StatusBar1.Panels(2).Text,
    };
}

void UndoHistory::Restore(State&& state) {
    Form1& form = module_.form1;
    const auto restore = [](ListBox& list, List&& kept) {
        list.Restore(std::move(kept.Items), std::move(kept.Selected));
        list.ListIndex = kept.ListIndex;
    };
    module_.WorkText = std::move(state.WorkText);
    module_.TextMode = std::move(state.TextMode);
    module_.ItemCount = state.ItemCount;
    module_.Note = state.Note;
    form.Caption = std::move(state.Caption);
    form.Text1.Restore(std::move(state.Text1));
    restore(form.List1, std::move(state.List1));
    restore(form.List2, std::move(state.List2));
    form.StatusBar1.SetPanelText(2, std::move(state.ItemText));
    // LdifText is not kept, so it may be another text's.
    form.LdifCurrent = false;
}

// Takes no memory, as it follows a command that may have left none.
void UndoHistory::Limit(States& states) {
    constexpr std::size_t kMostHeld = 8;  // by one state: two texts, and of each list three things
    std::array<const void*, kMostHeld * kMostSteps> counted{};
    auto* end = counted.begin();
    std::size_t bytes = 0;
    const auto count = [&](const void* held, std::size_t size) {
        if (std::find(counted.begin(), end, held) == end) {
            *end++ = held;
            bytes += size;
        }
    };
    const auto count_text = [&](const SharedText& text) { count(text.View().data(), text.size()); };
    std::size_t kept = 0;
    for (auto state = states.rbegin(); state != states.rend() && kept < kMostSteps; ++state) {
        count_text(state->WorkText);
        count_text(state->Text1);
        for (const List* list : {&state->List1, &state->List2}) {
            count_text(list->Items.Source());
            count(list->Items.Identity(), list->Items.Bytes());
            count(list->Selected.get(), list->Selected->size() * sizeof(std::size_t));
        }
        if (bytes > kMostBytes) {
            break;
        }
        ++kept;
    }
    while (states.size() > kept) {
        states.pop_front();
    }
}

}  // namespace orvik
