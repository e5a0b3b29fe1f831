// Shows a ListBox: several rows can be selected, typing finds a row, and a text that is cut off has
// a tool tip.

#pragma once

#include <QListView>
#include <functional>
#include <vector>

#include "app/controls.h"
#include "desktop/text/run_event.h"
#include "desktop/views/list_model.h"

namespace orvik {

class ListBoxView : public QListView {
    Q_OBJECT
 public:
    // box must outlive the view. After the user selected or deselected rows, the form gets them,
    // and the row that was clicked in ListIndex; then click runs, all as one event.
    ListBoxView(ListBox& box, RunEvent run, std::function<void()> click, QWidget* parent);

    // Makes the widget equal to the form.
    void sync();

    // Does what a click on a row does, and scrolls to it.
    void clickRow(int row);

    // How wide the list is if it shows row numbers only.
    [[nodiscard]] int widthOfNumbers() const;

 protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

 private:
    void syncSelection();
    [[nodiscard]] std::vector<std::size_t> selectedRows() const;
    // Lets Qt handle an event and then reports the click that came of it, if any: only then are
    // selection and current row both up to date.
    bool reportingClick(const std::function<bool()>& handle);
    void reportClick(int row);

    ListBox& box_;
    RunEvent run_;
    std::function<void()> click_;
    ListModel model_;
    // What the widget shows; nothing at first.
    Revision items_shown_ = ~Revision{0};
    Revision selection_shown_ = ~Revision{0};
    int handling_ = 0;
    bool clicked_ = false;
    // What happens to the selection is no click: at first, and while the form is shown.
    bool syncing_ = true;
};

}  // namespace orvik
