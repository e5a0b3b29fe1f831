// Finding in the main window: entries in list view, letters in edit mode.

#include <QAction>
#include <QIcon>
#include <QStyle>
#include <QTextCursor>

#include "desktop/find_entry.h"
#include "desktop/form1_window.h"
#include "desktop/list_box_view.h"
#include "desktop/text_box_view.h"

namespace orvik {

void Form1Window::addFind() {
    const auto add = [this](const char* name, const QString& text, const QKeySequence& keys) {
        auto* const action = new QAction(text, this);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(keys);
        addAction(action);
        return action;
    };
    find_ = add("find", tr("&Find..."), QKeySequence::Find);
    QAction* const next = add("findNext", tr("Find &next"), Qt::Key_F3);
    QAction* const previous = add("findPrevious", tr("Find &previous"), Qt::SHIFT | Qt::Key_F3);
    find_->setIcon(QIcon::fromTheme(QStringLiteral("edit-find")));
    next->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    previous->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    find_bar_ = new FindBar(*next, *previous, centralWidget());
    connect(find_, &QAction::triggered, this, [this] { openFind(); });
    connect(next, &QAction::triggered, this, [this] { find(FindBar::Step::Next); });
    connect(previous, &QAction::triggered, this, [this] { find(FindBar::Step::Previous); });
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
        return wanted.isEmpty() ? QString() : tr("Not found");
    }
    // What a click would do, in the list that has the row; the other one follows.
    const bool in_list1 = found->Row < form_.List1.Items().size();
    lists_.at(in_list1 ? 0 : 1).second->clickRow(static_cast<int>(found->Row));
    return wrapNotice(found->Wrapped, backward);
}

QString Form1Window::findInText(FindBar::Step step) {
    const QString wanted = find_bar_->wanted();
    if (wanted.isEmpty()) {
        return {};
    }
    const bool backward = step == FindBar::Step::Previous;
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QTextDocument& document = *text1_->document();
    const QTextCursor before = text1_->textCursor();
    QTextCursor found = step == FindBar::Step::Typed
                            ? document.find(wanted, before.selectionStart(), flags)
                            : document.find(wanted, before, flags);
    const bool wrapped = found.isNull();
    if (wrapped) {
        QTextCursor edge(text1_->document());
        edge.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        found = document.find(wanted, edge, flags);
    }
    if (found.isNull()) {
        return tr("Not found");
    }
    text1_->setTextCursor(found);
    return wrapNotice(wrapped, backward);
}

QString Form1Window::wrapNotice(bool wrapped, bool backward) {
    return !wrapped ? QString() : backward ? tr("From the end") : tr("From the start");
}

}  // namespace orvik
