// The lists that show the rows of one book, side by side: they scroll together, over the rows of
// the longest, and an entry that had the focus has it again when it stands elsewhere.

#pragma once

#include <QObject>
#include <optional>
#include <string>
#include <vector>

#include "desktop/views/list_box_view.h"
#include "desktop/views/same_entry.h"

namespace orvik {

class ListGroup : public QObject {
    Q_OBJECT
 public:
    using QObject::QObject;

    // The lists of an entry's two halves; the second has the scroll bar of all. They and what is
    // added must live as long as the group.
    void setEntries(ListBoxView& addresses, ListBoxView& nicknames);
    void add(ListBoxView& list);

    // Makes the lists equal to the form. book says which book is open: the entries of another one
    // begin at the top, and none has the focus.
    void sync(const std::string& book);
    // The lists that are shown now share one range.
    void shareRange();

    // The change that comes next leaves the lists where they are and gives this row the focus, the
    // last one if it is not there then.
    void keepRow(int row) { kept_row_ = row; }

    // The row that has the focus, -1 if none has it.
    [[nodiscard]] int focusedRow() const;

 private:
    void focusRow(int row);
    void scrollAll(int value);

    std::vector<ListBoxView*> lists_;
    ListBoxView* addresses_ = nullptr;
    ListBoxView* nicknames_ = nullptr;
    Entries shown_;
    std::string book_;
    std::optional<int> kept_row_;
};

}  // namespace orvik
