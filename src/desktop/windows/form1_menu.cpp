// The main window's menus, with their shortcuts.

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <array>
#include <string>

#include "desktop/text/system_clipboard.h"
#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/list_menu.h"

namespace orvik {
namespace {

struct ShortcutRow {
    std::string_view Command;
    const char* Keys;
};
constexpr std::array<ShortcutRow, 4> kShortcuts = {{
    {"mnuOpen", "Ctrl+O"},
    {"mnuSave", "Ctrl+S"},
    {"mnuExit", "Ctrl+Q"},
    {"mnuEntEd", "F2"},
}};

}  // namespace

void Form1Window::addMenus() {
    for (const Form1::Menu& menu : form_.Menus()) {
        QMenu* const shown = menuBar()->addMenu(ToLetters(menu.Item->Caption));
        shown->setObjectName(ObjectName(menu.Name));
        shown->setAccessibleName(SpokenCaption(menu.Item->Caption));
        shown->menuAction()->setObjectName(shown->objectName());
        actions_.emplace_back(menu.Item, shown->menuAction());
        for (const NamedControl& row : menu.Rows) {
            actions_.emplace_back(std::get<MenuItem*>(row.Ref), addCommand(*shown, row));
        }
    }
}

QAction* Form1Window::addCommand(QMenu& menu, const NamedControl& row) {
    const auto* const item = std::get<MenuItem*>(row.Ref);
    QAction* const action =
        item->IsSeparator() ? menu.addSeparator() : menu.addAction(ToLetters(item->Caption));
    action->setObjectName(ObjectName(row.Name));
    action->setCheckable(item == &form_.mnuEntEd);
    const auto* const keys = std::find_if(
        kShortcuts.begin(), kShortcuts.end(), [&](const auto& k) { return k.Command == row.Name; });
    if (keys != kShortcuts.end()) {
        action->setShortcut(QKeySequence(QString::fromLatin1(keys->Keys)));
    }
    const bool in_edit_mode = item == &form_.mnuPaste || item == &form_.mnuDel ||
                              item == &form_.mnuSelCopy || item == &form_.mnuClear;
    connect(action,
            &QAction::triggered,
            this,
            [this, item, in_edit_mode, command = Form::CommandOf(row)] {
                if (in_edit_mode) {
                    runInEditMode(command, [&] { runOnSelection(*item, command); });
                } else {
                    events_.runCommand(command);
                }
            });
    return action;
}

void Form1Window::syncMenus() {
    for (const auto& [item, action] : actions_) {
        // An action leaves an equal value alone.
        action->setEnabled(item->Enabled);
        action->setVisible(item->Visible);
        action->setChecked(item->Checked);
    }
    list_menu_->sync();
}

void Form1Window::runOnSelection(const MenuItem& item, const NamedHandler& command) {
    text1_->setKeepHistory(true);
    on_selection_ = true;
    events_.run([&] {
        text1_->takeSelection();
        if (&item != &form_.mnuPaste || makeRoomForPaste()) {
            events_.runCommand(command);
        }
    });
    on_selection_ = false;
    text1_->setKeepHistory(false);
}

// A Windows-1252 text that gets a letter outside it becomes UTF-8 as a whole. Returns false if it
// is too long for that.
bool Form1Window::makeRoomForPaste() {
    return CanEncode(WithLineBreaks(ClipboardBoxText()), text1_->encoding()) ||
           text1_->changeToUtf8();
}

}  // namespace orvik
