// The main window's menus, with their icons and shortcuts.

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
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

// An icon by its name in the user's theme; Fallback is the style's own.
struct IconRow {
    std::string_view Command;
    const char* Name;
    QStyle::StandardPixmap Fallback;
};
constexpr auto kNoFallback = QStyle::SP_CustomBase;

constexpr std::array<IconRow, 9> kIcons = {{
    {"mnuOpen", "document-open", QStyle::SP_DialogOpenButton},
    {"mnuSave", "document-save-as", QStyle::SP_DialogSaveButton},
    {"mnuExit", "application-exit", QStyle::SP_DialogCloseButton},
    {"mnuSelCopy", "edit-copy", kNoFallback},
    {"mnuPaste", "edit-paste", kNoFallback},
    {"mnuDel", "edit-delete", QStyle::SP_TrashIcon},
    {"mnuClear", "edit-clear", QStyle::SP_DialogResetButton},
    {"mnuPrefs", "preferences-system", kNoFallback},
    {"mnuHlp", "help-contents", QStyle::SP_DialogHelpButton},
}};

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

template <class Rows>
auto Find(const Rows& rows, std::string_view command) {
    return std::find_if(
        rows.begin(), rows.end(), [&](const auto& row) { return row.Command == command; });
}

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
    if (const auto* const icon = Find(kIcons, row.Name); icon != kIcons.end()) {
        const QIcon fallback =
            icon->Fallback == kNoFallback ? QIcon() : style()->standardIcon(icon->Fallback);
        action->setIcon(QIcon::fromTheme(QString::fromLatin1(icon->Name), fallback));
    }
    if (const auto* const keys = Find(kShortcuts, row.Name); keys != kShortcuts.end()) {
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
