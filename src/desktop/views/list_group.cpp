#include "desktop/views/list_group.h"

#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace orvik {

void ListGroup::setEntries(ListBoxView& addresses, ListBoxView& nicknames) {
    addresses_ = &addresses;
    nicknames_ = &nicknames;
    nicknames.setShowsScrollBar(true);
    add(addresses);
    add(nicknames);
}

void ListGroup::add(ListBoxView& list) {
    lists_.push_back(&list);
    connect(&list, &ListBoxView::scrolled, this, &ListGroup::scrollAll);
}

void ListGroup::sync(const std::string& book) {
    const bool other_entries = addresses_->hasOtherItems() || nicknames_->hasOtherItems();
    const int focused = focusedRow();
    for (ListBoxView* const list : lists_) {
        list->sync();
    }
    shareRange();
    if (!other_entries) {
        return;
    }
    // A copy of a list's items is no work.
    Entries now{addresses_->box().Items(), nicknames_->box().Items()};
    const auto row = focused < 0 || book != book_
                         ? std::nullopt
                         : SameEntry(shown_, static_cast<std::size_t>(focused), now);
    shown_ = std::move(now);
    book_ = book;
    if (const auto kept = std::exchange(kept_row_, {})) {
        focusRow(*kept);
    } else if (row) {
        focusRow(static_cast<int>(*row));
    } else {
        scrollAll(0);
    }
}

void ListGroup::shareRange() {
    int rows = 0;
    for (const ListBoxView* const list : lists_) {
        if (!list->isHidden()) {
            rows = std::max(rows, list->model()->rowCount());
        }
    }
    for (ListBoxView* const list : lists_) {
        list->setScrolledRows(rows);
    }
    // One that was hidden may stand elsewhere.
    scrollAll(nicknames_->verticalScrollBar()->value());
}

int ListGroup::focusedRow() const {
    const ListBoxView* const first = nicknames_->hasFocus() ? nicknames_ : addresses_;
    const int row = first->currentIndex().row();
    return row >= 0 ? row
                    : std::max(addresses_->currentIndex().row(), nicknames_->currentIndex().row());
}

void ListGroup::focusRow(int row) {
    const int rows = std::max(addresses_->model()->rowCount(), nicknames_->model()->rowCount());
    for (ListBoxView* const list : {addresses_, nicknames_}) {
        list->focusRow(std::min(row, rows - 1));
    }
}

void ListGroup::scrollAll(int value) {
    for (const ListBoxView* const list : lists_) {
        list->verticalScrollBar()->setValue(value);
    }
}

}  // namespace orvik
