// The context menu of the lists, and the keys for undo and redo in list view.

#pragma once

#include <QObject>

#include "app/module1.h"
#include "desktop/windows/form_events.h"

class QAction;
class QWidget;

namespace orvik {

class ListBoxView;

class ListMenu : public QObject {
    Q_OBJECT
 public:
    // All must outlive the menu. find is the window's own action.
    ListMenu(Module1& module, FormEvents& events, QAction& find, QWidget& window);

    // Gives a list its context menu; box is what the list shows.
    void addTo(ListBoxView& view, const ListBox& box);

    // Names the commands that can be undone and done again. In edit mode there are none, so that
    // the keys belong to the text box.
    void sync();

 private:
    QAction* addHistory(const QString& name,
                        const QKeySequence& keys,
                        const FormEvents::Event& step);
    void addCopy(ListBoxView& view, const QString& caption, const FormEvents::Event& copy);

    Module1& module_;
    FormEvents& events_;
    QAction& find_;
    QWidget& window_;
    QAction* undo_;
    QAction* redo_;
};

}  // namespace orvik
