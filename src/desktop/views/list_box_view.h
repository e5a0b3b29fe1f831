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

    // The list is one of numbers to choose among: each click adds a row or takes it back, as if
    // Ctrl were held, and hint is the tool tip.
    void showNumbers(const QString& hint);
    [[nodiscard]] bool addsClicks() const { return adds_clicks_; }
    // The size of a row with this text, and how wide the list must be for its longest item.
    [[nodiscard]] QSize sizeOf(const QString& text) const;
    [[nodiscard]] int widthOfItems() const { return sizeOf(longest_).width() + 2 * frameWidth(); }

    [[nodiscard]] const ListBox& box() const { return box_; }
    // Whether the form has other items than those that are shown.
    [[nodiscard]] bool hasOtherItems() const { return items_shown_ != box_.ItemsRevision(); }
    // Makes the widget equal to the form.
    void sync();

    // The list scrolls over this many rows, whether it has them or not, and has a scroll bar only
    // if it is the one that shows it.
    void setScrolledRows(int rows);
    void setShowsScrollBar(bool shows) { shows_scroll_bar_ = shows; }
    // This much of the right edge lies under another list.
    void setCovered(int width);

    // Does what a click on a row does, and scrolls to it.
    void clickRow(int row);
    // Gives a row the focus, and scrolls to it; no row is selected by that.
    void focusRow(int row);

 signals:
    // The user, or a row that has to be seen, has scrolled the list.
    void scrolled(int value);

 protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    void updateGeometries() override;

 private:
    void syncSelection();
    void findLongest();
    [[nodiscard]] std::vector<std::size_t> selectedRows() const;
    // Lets Qt handle an event and then reports the click that came of it, if any: only then are
    // selection and current row both up to date.
    bool reportingClick(const std::function<bool()>& handle);
    void reportClick(int row);
    // Says what there is to say about the row at this place; at once, since who rests on a row
    // that is cut off wants to read it.
    void showTip(const QPoint& place, const QPoint& on_screen);

    ListBox& box_;
    RunEvent run_;
    std::function<void()> click_;
    ListModel model_;
    // What the widget shows; nothing at first.
    Revision items_shown_ = ~Revision{0};
    Revision selection_shown_ = ~Revision{0};
    QString hint_;
    QString longest_;  // of numbers the longest one: any other of as many digits is as wide
    int scrolled_rows_ = 0;
    bool adds_clicks_ = false;
    bool shows_scroll_bar_ = false;
    // The range is being set, so a change of the scroll bar is none of the user's.
    bool measuring_ = false;
    int handling_ = 0;
    bool clicked_ = false;
    // What happens to the selection is no click: at first, and while the form is shown.
    bool syncing_ = true;
};

}  // namespace orvik
