// The main window's tool bar, and the headings of its lists.

#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QPushButton>

#include "app/entry_lines.h"
#include "app/working_text.h"
#include "desktop/session/window_place.h"
#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/list_heading.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/tool_bar.h"

namespace orvik {

void Form1Window::addBar() {
    const auto action = [this](const char* name) {
        return findChild<QAction*>(QString::fromLatin1(name));
    };
    tool_bar_ = new ToolBar(
        module_,
        books_,
        {action("mnuOpen"), action("mnuSave"), action("undo"), action("redo"), action("find")},
        *text1_,
        *this);
    addToolBar(Qt::TopToolBarArea, tool_bar_);
    connect(
        tool_bar_, &ToolBar::bookChosen, this, [this](const QString& name) { openBooks({name}); });
    connect(tool_bar_, &ToolBar::moveAsked, this, &Form1Window::askForMove);
    connect(&tool_bar_->wanted(), &QAction::toggled, this, [this](bool wanted) {
        if (!state_file_.isEmpty()) {
            KeepBarHidden(!wanted, state_file_);
        }
        layOut();
    });
    for (const Heading& heading : headings_) {
        heading.Shown->addAction(&tool_bar_->wanted());
    }
}

// What the user sees, whichever form it has.
void Form1Window::askForMove() {
    const SharedText& text = module_.WorkText;
    const bool native = module_.IsListed(text) || HasNickLine(text);
    const std::string file = Form1::FileOf(title());
    emit moveAsked(file.empty() ? tr("new book").toStdString() : file,
                   EntryLines(text, native, module_.textSep));
}

void Form1Window::rememberIn(const QString& file) {
    tool_bar_->wanted().setChecked(!IsBarHidden(file));
    state_file_ = file;
}

// Of the menu bar and of the tool bar, so that it brings the bar back too.
QMenu* Form1Window::createPopupMenu() {
    auto* const menu = new QMenu(this);
    menu->addAction(&tool_bar_->wanted());
    return menu;
}

void Form1Window::addHeadings() {
    const auto add = [this](const ListBox& list,
                            const char* list_name,
                            const Button& button,
                            const char* button_name,
                            const QString& text) {
        auto* const heading =
            new ListHeading(QString::fromLatin1(list_name) + QStringLiteral("Heading"),
                            text,
                            ToLetters(button.ToolTip),
                            centralWidget());
        heading->setContextMenuPolicy(Qt::ActionsContextMenu);
        connect(heading, &QAbstractButton::clicked, this, [this, button_name] {
            findChild<QPushButton*>(QString::fromLatin1(button_name))->click();
        });
        headings_.push_back({&list, &button, heading});
    };
    add(form_.List1, "List1", form_.cmdEmail, "cmdEmail", tr("E-mail addresses"));
    add(form_.List2, "List2", form_.cmdNick, "cmdNick", tr("Nicknames"));
}

void Form1Window::syncHeadings() {
    for (const Heading& heading : headings_) {
        const bool shown = heading.Of->Visible && !is_low_;
        if (heading.Shown->isHidden() == shown) {
            heading.Shown->setVisible(shown);
        }
        heading.Shown->setEnabled(heading.Sorts->Visible && heading.Sorts->Enabled);
    }
}

// Bar and headings leave a low window to the lists.
void Form1Window::fitBar() {
    constexpr int kFewestLines = 12;
    is_low_ = height() < kFewestLines * fontMetrics().lineSpacing();
    tool_bar_->fit(is_low_, width());
    // What follows needs the central widget at its new place.
    layout()->activate();
}

}  // namespace orvik
