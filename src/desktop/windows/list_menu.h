// The context menu of the lists with its keys, and those for undo and redo in list view.

#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <functional>
#include <utility>
#include <vector>

#include "app/module1.h"
#include "desktop/windows/form_events.h"

class QAction;
class QKeySequence;
class QWidget;

namespace orvik {

class ListBoxView;
class ListGroup;

class ListMenu : public QObject {
    Q_OBJECT
 public:
    // All must outlive the menu. find is the window's own action.
    ListMenu(Module1& module,
             FormEvents& events,
             Desktop& desktop,
             ListGroup& lists,
             QAction& find,
             QWidget& window);

    // Gives a list its context menu.
    void addTo(ListBoxView& view);

    // Names the commands that can be undone and done again. In edit mode there are none, so that
    // the keys belong to the text box. Greys what there is no entry for.
    void sync();

 private:
    QAction* addHistory(const QString& name,
                        const QKeySequence& keys,
                        const FormEvents::Event& step);
    // A row of a list's menu with the keys that it has while the list has the focus.
    QAction* addRow(ListBoxView& view,
                    const QString& name,
                    const QString& caption,
                    const QList<QKeySequence>& keys,
                    const std::function<void()>& act);
    void editEntry(const ListBoxView& view);
    void deleteEntries(const ListBoxView& view);
    // Tells that a row is no longer in the book, if so: a command may leave the lists as they were.
    bool isGone(std::size_t row);

    Module1& module_;
    FormEvents& events_;
    Desktop& desktop_;
    ListGroup& lists_;
    QAction& find_;
    QWidget& window_;
    QAction* undo_;
    QAction* redo_;
    // Greyed without an entry, and without a selected one.
    std::vector<std::pair<const ListBoxView*, QAction*>> on_entry_;
    std::vector<std::pair<const ListBoxView*, QAction*>> on_selection_;
};

}  // namespace orvik
