#include "desktop/windows/list_menu.h"

#include <QAction>
#include <QKeySequence>

#include "desktop/text/text_codec.h"
#include "desktop/views/list_box_view.h"
#include "desktop/views/list_group.h"
#include "desktop/windows/changed_entry.h"
#include "desktop/windows/entry_dialog.h"

namespace orvik {
namespace {

// "Undo Open file", and "Undo" alone and greyed where there is nothing to undo.
void Name(QAction& action, const QString& verb, std::string_view title) {
    const QString text = title.empty() ? verb : verb + u' ' + ToLetters(title);
    if (action.text() != text) {
        action.setText(text);
    }
    action.setEnabled(!title.empty());
}

QAction* Separator(QObject* parent) {
    auto* const action = new QAction(parent);
    action->setSeparator(true);
    return action;
}

}  // namespace

ListMenu::ListMenu(Module1& module,
                   FormEvents& events,
                   Desktop& desktop,
                   ListGroup& lists,
                   QAction& find,
                   QWidget& window)
    : QObject(&window),
      module_(module),
      events_(events),
      desktop_(desktop),
      lists_(lists),
      find_(find),
      window_(window),
      undo_(addHistory(
          QStringLiteral("undo"), QKeySequence::Undo, [this] { module_.history.Undo(); })),
      redo_(addHistory(QStringLiteral("redo"),
                       QKeySequence(QStringLiteral("Ctrl+Shift+Z")),
                       [this] { module_.history.Redo(); })) {
    sync();
}

QAction* ListMenu::addHistory(const QString& name,
                              const QKeySequence& keys,
                              const FormEvents::Event& step) {
    auto* const action = new QAction(this);
    action->setObjectName(name);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, step] { events_.run(step); });
    window_.addAction(action);
    return action;
}

void ListMenu::addTo(ListBoxView& view) {
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
    view.addAction(undo_);
    view.addAction(redo_);
    view.addAction(Separator(&view));
    const auto run = [this](const FormEvents::Event& event) {
        return [this, event] { events_.run(event); };
    };
    QAction* const edit = addRow(view,
                                 QStringLiteral("editEntry"),
                                 tr("Ed&it entry..."),
                                 {Qt::Key_Return, Qt::Key_Enter},
                                 run([this, &view] { editEntry(view); }));
    on_entry_.emplace_back(&view, edit);
    connect(&view, &ListBoxView::doubleClicked, edit, &QAction::trigger);
    on_selection_.emplace_back(&view,
                               addRow(view,
                                      QStringLiteral("deleteEntries"),
                                      tr("&Delete entries"),
                                      {QKeySequence::Delete},
                                      run([this, &view] { deleteEntries(view); })));
    view.addAction(Separator(&view));
    on_selection_.emplace_back(
        &view,
        addRow(view,
               QStringLiteral("copyAddress"),
               tr("Copy &address"),
               {QKeySequence::Copy},
               run([this, &view] { module_.form1.CopyAddresses(view.box()); })));
    on_selection_.emplace_back(
        &view,
        addRow(view,
               QStringLiteral("copyEntry"),
               tr("Copy &entry"),
               {QKeySequence(QStringLiteral("Ctrl+Shift+C"))},
               run([this, &view] { module_.form1.CopyEntries(view.box()); })));
    view.addAction(Separator(&view));
    on_entry_.emplace_back(&view,
                           addRow(view,
                                  QStringLiteral("selectAll"),
                                  tr("&Select All"),
                                  {QKeySequence::SelectAll},
                                  [&view] { view.selectAll(); }));
    view.addAction(&find_);
    sync();
}

QAction* ListMenu::addRow(ListBoxView& view,
                          const QString& name,
                          const QString& caption,
                          const QList<QKeySequence>& keys,
                          const std::function<void()>& act) {
    auto* const action = new QAction(caption, &view);
    action->setObjectName(name);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this, act);
    view.addAction(action);
    return action;
}

bool ListMenu::isGone(std::size_t row) {
    if (row < module_.form1.EntryRows()) {
        return false;
    }
    module_.Tell(tr("This entry is no longer in the book.").toStdString());
    return true;
}

void ListMenu::editEntry(const ListBoxView& view) {
    const int current = view.currentIndex().row();
    if (current < 0 || isGone(static_cast<std::size_t>(current))) {
        return;
    }
    const auto row = static_cast<std::size_t>(current);
    Form1& form = module_.form1;
    const auto item = [row](const ListBox& list) {
        return row < list.Items().size() ? std::string(list.Items()[row]) : std::string();
    };
    const std::string address = item(form.List1);
    const std::string nickname = item(form.List2);
    const auto typed = [&](const EntryDialog& dialog) {
        return ToEntry(dialog.address(), dialog.nickname(), address, nickname, module_.WorkText);
    };
    const auto may_be = [&](const EntryDialog& dialog) {
        const QString reason = WhyNotKept(typed(dialog), module_.textSep);
        if (!reason.isEmpty()) {
            events_.run([&] { module_.Tell(reason.toStdString()); });
        }
        return reason.isEmpty();
    };
    EntryDialog dialog(ToLetters(address), ToLetters(nickname), may_be, &window_);
    if (desktop_.nested([&] { return dialog.exec(); }) != QDialog::Accepted) {
        return;
    }
    ChangedEntry entry = typed(dialog);
    lists_.keepRow(current);
    module_.history.Run("Edit entry", [&] {
        if (!entry.WholeText.empty()) {
            module_.WorkText = std::move(entry.WholeText);
        }
        form.EditEntry(row, entry.Address, entry.Nickname);
    });
}

void ListMenu::deleteEntries(const ListBoxView& view) {
    const std::vector<std::size_t> rows = view.box().Selected();
    if (rows.empty() || isGone(rows.back())) {
        return;
    }
    lists_.keepRow(static_cast<int>(rows.front()));
    module_.form1.DeleteEntries(rows);
}

void ListMenu::sync() {
    Name(*undo_, tr("&Undo"), module_.history.UndoTitle());
    Name(*redo_, tr("&Redo"), module_.history.RedoTitle());
    for (const auto& [view, action] : on_entry_) {
        action->setEnabled(!view->box().Items().empty());
    }
    for (const auto& [view, action] : on_selection_) {
        action->setEnabled(!view->box().Selected().empty());
    }
}

}  // namespace orvik
