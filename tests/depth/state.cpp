#include "depth/state.h"

#include <utility>

namespace orvik::depth {
namespace {

constexpr std::size_t kMostSteps = 50;

bool AreSame(const ItemList& one, const ItemList& other) {
    if (one.size() != other.size()) {
        return false;
    }
    for (std::size_t i = 0; i < one.size(); ++i) {
        if (one[i] != other[i]) {
            return false;
        }
    }
    return true;
}

bool AreSame(const State::List& one, const State::List& other) {
    return AreSame(one.Items, other.Items) && one.Selected == other.Selected &&
           one.Clicked == other.Clicked;
}

}  // namespace

State State::Of(const Module1& module) {
    const Form1& form = module.form1;
    const auto list = [](const ListBox& box) {
        return List{box.Items(), box.ItemsRevision(), box.Selected(), box.ListIndex};
    };
    // Copies, so that a text which changes while others hold it is noticed.
    return {.Text = std::string(module.WorkText),
            .Mode = module.TextMode,
            .Caption = form.Caption,
            .Box = std::string(form.Text1.Text()),
            .Addresses = list(form.List1),
            .Nicknames = list(form.List2),
            .Count = module.ItemCount,
            .CountText = form.StatusBar1.Panels(2).Text,
            .Editing = module.EditMode};
}

bool State::IsSameAs(const State& other) const {
    return Text == other.Text && Mode == other.Mode && Caption == other.Caption &&
           Box == other.Box && AreSame(Addresses, other.Addresses) &&
           AreSame(Nicknames, other.Nicknames) && Count == other.Count &&
           CountText == other.CountText;
}

std::optional<Entries> State::Shown() const {
    if (Addresses.Items.size() != Nicknames.Items.size()) {
        return std::nullopt;
    }
    Entries entries;
    for (std::size_t i = 0; i < Addresses.Items.size(); ++i) {
        entries.push_back({std::string(Addresses.Items[i]), std::string(Nicknames.Items[i])});
    }
    return entries;
}

void UndoTwin::Ran(std::string_view title, const State& before, const State& after) {
    if (!before_) {
        before_ = {std::string(title), before};
    }
    if (after.Editing) {
        return;
    }
    if (before_->Was.Text != after.Text) {
        Keep(undo_, std::move(*before_));
        redo_.clear();
    }
    before_.reset();
}

std::optional<State> UndoTwin::Step(Steps& from, Steps& to, const State& before) {
    if (from.empty() || before.Editing) {
        return std::nullopt;
    }
    Kept kept = std::move(from.back());
    from.pop_back();
    Keep(to, {kept.Title, before});
    return std::move(kept.Was);
}

std::string UndoTwin::TitleOf(const Steps& steps, const State& now) {
    return steps.empty() || now.Editing ? std::string() : steps.back().Title;
}

void UndoTwin::Keep(Steps& steps, Kept kept) {
    steps.push_back(std::move(kept));
    if (steps.size() > kMostSteps) {
        steps.erase(steps.begin());
    }
}

}  // namespace orvik::depth
