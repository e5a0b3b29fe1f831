// The main window's controls inside its frame.

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <string>

#include "desktop/text/text_box_view.h"
#include "desktop/views/control_views.h"
#include "desktop/views/list_box_view.h"
#include "desktop/views/list_group.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/list_menu.h"

namespace orvik {

void Form1Window::addText() {
    const TextBoxView::Commands commands{findChild<QAction*>(QStringLiteral("mnuSelCopy")),
                                         findChild<QAction*>(QStringLiteral("mnuPaste")),
                                         findChild<QAction*>(QStringLiteral("mnuDel")),
                                         &find_bar_->findAction()};
    const auto add = [&](TextBox& box, const char* name, const QString& spoken) {
        auto* const view = new TextBoxView(
            box,
            [this](const FormEvents::Event& event) { return events_.run(event); },
            commands,
            centralWidget());
        view->setObjectName(QString::fromLatin1(name));
        view->setAccessibleName(spoken);
        return view;
    };
    text1_ = add(form_.Text1, "Text1", tr("Address book as text"));
    text3_ = add(form_.Text3, "Text3", tr("Additional text"));
}

void Form1Window::addLists() {
    const auto add = [this](ListBox& box, const char* name, const QString& spoken) {
        auto* const view = new ListBoxView(
            box,
            [this](const FormEvents::Event& event) { return events_.run(event); },
            [this, command = Form::CommandOf(form_.ControlNamed(name))] {
                if (command.Run) {
                    events_.runCommand(command);
                }
            },
            centralWidget());
        view->setObjectName(QString::fromLatin1(name));
        view->setAccessibleName(spoken);
        lists_.emplace_back(&box, view);
        return view;
    };
    auto* const addresses = add(form_.List1, "List1", tr("E-mail addresses"));
    auto* const nicknames = add(form_.List2, "List2", tr("Nicknames"));
    list_group_ = new ListGroup(this);
    list_group_->setEntries(*addresses, *nicknames);
    list_menu_ =
        new ListMenu(module_, events_, desktop_, *list_group_, find_bar_->findAction(), *this);
    list_menu_->addTo(*addresses);
    list_menu_->addTo(*nicknames);
    auto* const numbers = add(form_.List3, "List3", tr("Numbers of the rows to select"));
    const QString hint = tr("Click the numbers that you want, then Done");
    numbers->showNumbers(hint);
    list_group_->add(*numbers);
    number_hint_ = new QLabel(hint, centralWidget());
    number_hint_->setObjectName(QStringLiteral("numberHint"));
    number_hint_->setTextFormat(Qt::PlainText);
    number_hint_->setWordWrap(true);
    number_hint_->setMargin(2);
    number_hint_->hide();
}

void Form1Window::addButtons() {
    addButton("cmdEmail", AtYield::Refused);
    addButton("cmdNick", AtYield::Refused);
    addButton("cmdDone", AtYield::Refused);
    addButton("cmdCancel", AtYield::Taken);
}

void Form1Window::addButton(std::string_view name, AtYield at_yield) {
    const NamedControl row = form_.ControlNamed(name);
    const Button& button = *std::get<Button*>(row.Ref);
    auto* const view = MakeButton(name, button, centralWidget());
    connect(view, &QPushButton::clicked, this, [this, at_yield, command = Form::CommandOf(row)] {
        events_.runCommand(command, at_yield);
    });
    if (at_yield == AtYield::Taken) {
        desktop_.acceptAtYield(*view);
        view->installEventFilter(this);
    }
    buttons_.emplace_back(&button, view);
}

void Form1Window::syncControls() {
    for (const auto& [list, view] : lists_) {
        SyncControl(*view, *list);
    }
    list_group_->sync(form_.Caption);
    for (const auto& [button, view] : buttons_) {
        SyncControl(*view, *button);
    }
    focusCancel();
    // The lists lie over the text box.
    const bool editing = form_.mnuEntEd.Checked;
    const bool was_covered = text1_->isCovered();
    text1_->sync(form_.List1.Visible || !form_.Text1.Visible, editing);
    text3_->sync(!form_.Text3.Visible, false);
    if (was_covered != text1_->isCovered()) {
        QWidget* const front = was_covered ? text1_ : findChild<QWidget*>(QStringLiteral("List1"));
        front->setFocus();
    }
}

// A list generation shows Cancel too, but leaves the menus as they are.
bool Form1Window::isExtracting() const {
    return form_.cmdCancel.Visible && !form_.mnuFile.Enabled;
}

// During an extraction no other control takes a key, Tab included, so Cancel has the focus then.
void Form1Window::focusCancel() {
    const bool extracting = isExtracting();
    if (extracting == cancel_has_keys_) {
        return;
    }
    cancel_has_keys_ = extracting;
    if (extracting) {
        before_cancel_ = focusWidget();
        findChild<QWidget*>(QStringLiteral("cmdCancel"))->setFocus();
    } else if (before_cancel_ != nullptr && before_cancel_->isVisible()) {
        before_cancel_->setFocus();
    }
}

bool Form1Window::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::KeyPress && isExtracting() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        qobject_cast<QPushButton*>(receiver)->click();
        return true;
    }
    return QMainWindow::eventFilter(receiver, event);
}

}  // namespace orvik
