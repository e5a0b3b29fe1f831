#include "desktop/windows/list_menu.h"

#include <QAction>
#include <QKeySequence>

#include "desktop/text/text_codec.h"
#include "desktop/views/list_box_view.h"

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

ListMenu::ListMenu(Module1& module, FormEvents& events, QAction& find, QWidget& window)
    : QObject(&window),
      module_(module),
      events_(events),
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

void ListMenu::addTo(ListBoxView& view, const ListBox& box) {
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
    view.addAction(undo_);
    view.addAction(redo_);
    view.addAction(Separator(&view));
    addCopy(view, tr("Copy &address"), [this, &box] { module_.form1.CopyAddresses(box); });
    addCopy(view, tr("Copy &entry"), [this, &box] { module_.form1.CopyEntries(box); });
    view.addAction(Separator(&view));
    auto* const select_all = new QAction(tr("&Select All"), &view);
    connect(select_all, &QAction::triggered, &view, &ListBoxView::selectAll);
    view.addAction(select_all);
    view.addAction(&find_);
}

void ListMenu::addCopy(ListBoxView& view, const QString& caption, const FormEvents::Event& copy) {
    auto* const action = new QAction(caption, &view);
    connect(action, &QAction::triggered, this, [this, copy] { events_.run(copy); });
    view.addAction(action);
}

void ListMenu::sync() {
    Name(*undo_, tr("&Undo"), module_.history.UndoTitle());
    Name(*redo_, tr("&Redo"), module_.history.RedoTitle());
}

}  // namespace orvik
