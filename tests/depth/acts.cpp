#include "depth/acts.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <variant>

namespace orvik::depth {
namespace {

// The acts that change the book, and how much each is liked.
const std::map<std::string, std::size_t, std::less<>>& Liked() {
    static const std::map<std::string, std::size_t, std::less<>> kLiked = {
        {"Form1.mnuOpen_Click", 8},
        {"Form1.mnuMerge_Click", 4},
        {"Form1.mnuExtract_Click", 6},
        {"Form1.mnuClearPaste_Click", 8},
        {"Form1.mnuClearPasteNet4_Click", 4},
        {"Form1.mnuClearPasteNet3_Click", 4},
        {"Form1.mnuPasteJuno_Click", 4},
        {"Form1.mnuSave_Click", 4},
        {"Form1.mnuEntEd_Click", 4},
        {"Form1.mnuUn_Click", 3},
        {"Form1.mnuParse_Click", 3},
        {"Form1.mnuAlphNick_Click", 5},
        {"Form1.mnuAlphAddr_Click", 5},
        {"Form1.mnuPaste_Click", 2},
        {"Form3.Command1_Click", 3},
        {"Form3.Command2_Click", 3},
        {"drop", 5},
        {"undo", 14},
        {"redo", 7},
        {"edit-entry", 16},
        {"delete-entries", 5},
        {"type", 5},
    };
    return kLiked;
}

// What has to be done before the acts of a form, or this act, are possible.
std::string_view WayTo(std::string_view act) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 18> kWays = {{
        {"Form1.mnuPaste_", "Form1.mnuEntEd_Click"},
        {"Form1.mnuDel_", "Form1.mnuEntEd_Click"},
        {"Form1.mnuSelCopy_", "Form1.mnuEntEd_Click"},
        {"Form1.mnuClear_", "Form1.mnuEntEd_Click"},
        {"Form1.Text1_Change", "Form1.mnuEntEd_Click"},
        {"type", "Form1.mnuEntEd_Click"},
        {"select", "Form1.mnuEntEd_Click"},
        {"Form1.cmdDone_", "frmSelect.Command1_Click"},
        {"Form1.cmdCancel_", "frmSelect.Command1_Click"},
        {"rows", "frmSelect.Command1_Click"},
        {"Form1.", "Form1.mnuEntEd_Click"},
        {"Form2.", "Form1.mnuPrefs_Click"},
        {"Form3.", "chooser"},
        {"Form4.", "Form1.mnuFull_Click"},
        {"Form5.", "Form1.mnuPrefs_Click"},
        {"Form6.", "start"},
        {"frmAbout.", "Form1.mnuAbout_Click"},
        {"frmSelect.", "Form1.mnuList_Click"},
    }};
    const auto* const found = std::find_if(
        kWays.begin(), kWays.end(), [&](const auto& way) { return act.starts_with(way.first); });
    return found == kWays.end() ? std::string_view{} : found->second;
}

// What a control is: whether it can be pressed.
std::function<bool()> PossibleWith(const ControlRef& control) {
    return std::visit(
        [](auto* kind) -> std::function<bool()> {
            return [kind] { return kind->Visible && kind->Enabled; };
        },
        control);
}

}  // namespace

Acts::Acts(Program& program, Tally& tally) : program_(program) {
    for (Form* const form : program.Forms()) {
        AddHandlers(*form);
    }
    AddOthers();
    for (Act& act : acts_) {
        act.After = WayTo(act.Name);
        const auto liked = Liked().find(act.Name);
        act.Weight = liked == Liked().end() ? 0 : liked->second;
        weights_ += act.Weight;
        tally.Expect(act.Name);
    }
}

std::function<bool()> Acts::PossibleIn(Form& form, const std::string& control) {
    const bool is_main = &form == &program_.form1;
    for (const Form1::Menu& menu : is_main ? program_.form1.Menus() : std::vector<Form1::Menu>()) {
        for (const NamedControl& row : menu.Rows) {
            if (row.Name == control) {
                return [&form, item = menu.Item, row = PossibleWith(row.Ref)] {
                    return form.Visible() && item->Enabled && row();
                };
            }
        }
    }
    for (const NamedControl& known : form.Controls()) {
        if (known.Name == control) {
            return [&form, known = PossibleWith(known.Ref)] { return form.Visible() && known(); };
        }
    }
    return [&form] { return form.Visible(); };
}

void Acts::AddHandlers(Form& form) {
    for (const NamedHandler& handler : form.Handlers()) {
        // A form is loaded by being shown. The lists are clicked by choosing rows, and the text box
        // changes by typing: other acts count as those.
        if (handler.Name == "Form_Load" || handler.Name == "List1_Click" ||
            handler.Name == "List2_Click" || handler.Name == "Text1_Change") {
            continue;
        }
        const std::string control = handler.Name.substr(0, handler.Name.rfind('_'));
        Act act;
        act.Name = std::string(form.Name()) + "." + handler.Name;
        act.Title = handler.Title;
        // The window gets a size, besides.
        if (handler.Name != "Form_Resize") {
            act.Handler = handler;
            act.Owner = &form;
        }
        // The preferences and the automation's window are up to the person who sees them.
        act.IsPossible =
            &form == &program_.form2 || &form == &program_.form5 || &form == &program_.form6
                ? [] { return false; }
                : PossibleIn(form, control);
        acts_.push_back(std::move(act));
    }
}

void Acts::AddOthers() {
    Form1& form = program_.form1;
    const Module1& module = program_.module;
    const auto lists = [&form, &module] { return form.Visible() && !module.EditMode; };
    const auto editing = [&form, &module] { return form.Visible() && module.EditMode; };
    Add("undo", "", [lists, &module] { return lists() && !module.history.UndoTitle().empty(); });
    Add("redo", "", [lists, &module] { return lists() && !module.history.RedoTitle().empty(); });
    Add("edit-entry", "Edit entry", [lists, &form] { return lists() && form.EntryRows() > 0; });
    Add("delete-entries", std::string(Form1::kDeleteEntries), [lists, &form] {
        return lists() && form.EntryRows() > 0;
    });
    Add("Form1.List1_Click", "", [lists, &form] { return lists() && !form.List1.Items().empty(); });
    Add("Form1.List2_Click", "", [lists, &form] { return lists() && !form.List2.Items().empty(); });
    Add("rows", "", [&form] {
        return form.Visible() && form.List3.Visible && !form.List3.Items().empty();
    });
    Add("type", "", editing);
    Add("select", "", editing);
    Add("Form1.Text1_Change", "", editing);
    Add("drop", "Open file", lists);
    Add("key", "", [] { return true; });
    Add("start", "", lists);
    // Opening a file when the format is asked for, or asking for that.
    Add("chooser", "", lists);
}

void Acts::Add(std::string_view name, std::string_view title, std::function<bool()> is_possible) {
    Act act;
    act.Name = name;
    act.Title = title;
    act.IsPossible = std::move(is_possible);
    acts_.push_back(std::move(act));
}

const Act* Acts::Find(const std::string& name) const {
    const auto found =
        std::find_if(acts_.begin(), acts_.end(), [&](const Act& act) { return act.Name == name; });
    return found == acts_.end() ? nullptr : &*found;
}

// A handler that has run too seldom so far, or what leads to it.
const Act* Acts::Rare(Dice& dice, const Tally& tally, std::size_t steps) const {
    const std::size_t first = dice.Below(acts_.size());
    for (std::size_t i = 0; i < acts_.size(); ++i) {
        const Act* act = &acts_[(first + i) % acts_.size()];
        // A little more than has to be.
        if (tally.Of(act->Name) * 1000 > (kLeastPerThousand + 1) * steps) {
            continue;
        }
        for (int ways = 0; act != nullptr && !act->IsPossible() && ways < 3; ++ways) {
            act = act->After.empty() ? nullptr : Find(act->After);
        }
        if (act != nullptr && act->IsPossible()) {
            return act;
        }
    }
    return nullptr;
}

const Act& Acts::Choose(Dice& dice, const Tally& tally, std::size_t steps) const {
    if (dice.Percent(60)) {
        if (const Act* const rare = Rare(dice, tally, steps)) {
            return *rare;
        }
    }
    for (int tries = 0; tries < 40; ++tries) {
        std::size_t chance = dice.Below(weights_);
        const auto found = std::find_if(acts_.begin(), acts_.end(), [&](const Act& act) {
            const bool here = chance < act.Weight;
            chance -= here ? 0 : act.Weight;
            return here;
        });
        if (found->IsPossible()) {
            return *found;
        }
    }
    // Behind a window that hides the main one.
    for (;;) {
        const Act& act = dice.Of(acts_);
        if (act.IsPossible()) {
            return act;
        }
    }
}

}  // namespace orvik::depth
