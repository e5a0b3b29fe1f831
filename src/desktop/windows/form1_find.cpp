// Finding in the main window: entries in list view, letters in edit mode.

#include "desktop/text/find_entry.h"
#include "desktop/text/text_box_view.h"
#include "desktop/views/find_in_text.h"
#include "desktop/views/list_box_view.h"
#include "desktop/windows/form1_window.h"

namespace orvik {

void Form1Window::addFind() {
    find_bar_ = new FindBar(*this, centralWidget());
    connect(find_bar_, &FindBar::asked, this, [this] { openFind(); });
    connect(find_bar_, &FindBar::stepped, this, [this](FindBar::Step step) { find(step); });
    connect(find_bar_, &FindBar::left, this, [this] { closeFind(); });
}

void Form1Window::openFind() {
    events_.run([this] {
        if (!find_bar_->isAncestorOf(focusWidget())) {
            before_find_ = focusWidget();
        }
        find_bar_->tell({});
        find_bar_->open();
    });
}

void Form1Window::closeFind() {
    find_bar_->hide();
    place();
    QWidget* const back = before_find_ != nullptr && before_find_->isVisible() ? before_find_.data()
                          : text1_->isCovered() ? static_cast<QWidget*>(lists_.front().second)
                                                : text1_;
    back->setFocus();
}

void Form1Window::find(FindBar::Step step) {
    if (find_bar_->isHidden() && find_bar_->wanted().isEmpty()) {
        openFind();
        return;
    }
    events_.run([this, step] {
        // The notice must be seen, so the bar comes with a search by key; the focus stays.
        find_bar_->show();
        find_bar_->tell(text1_->isCovered() ? findEntry(step) : findInText(step));
    });
}

QString Form1Window::findEntry(FindBar::Step step) {
    const QString wanted = find_bar_->wanted();
    const int current = lists_.front().second->currentIndex().row();
    const bool backward = step == FindBar::Step::Previous;
    std::size_t from = 0;
    if (backward) {
        // Without a current row from the last one on.
        from = current < 0 ? form_.List1.Items().size() : static_cast<std::size_t>(current);
    } else if (current >= 0) {
        from = static_cast<std::size_t>(step == FindBar::Step::Next ? current + 1 : current);
    }
    const auto found = FindEntry(form_.List1.Items(),
                                 form_.List2.Items(),
                                 wanted,
                                 from,
                                 backward ? Direction::Backward : Direction::Forward);
    if (!found) {
        return wanted.isEmpty() ? QString() : FindBar::notice(false, false, step);
    }
    // What a click would do, in the list that has the row; the other one follows.
    const bool in_list1 = found->Row < form_.List1.Items().size();
    lists_.at(in_list1 ? 0 : 1).second->clickRow(static_cast<int>(found->Row));
    return FindBar::notice(true, found->Wrapped, step);
}

QString Form1Window::findInText(FindBar::Step step) {
    const QString wanted = find_bar_->wanted();
    if (wanted.isEmpty()) {
        return {};
    }
    const TextPlace found = FindInText(text1_->textCursor(), wanted, step);
    if (!found.Cursor.isNull()) {
        text1_->setTextCursor(found.Cursor);
    }
    return FindBar::notice(!found.Cursor.isNull(), found.Wrapped, step);
}

}  // namespace orvik
