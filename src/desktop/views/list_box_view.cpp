#include "desktop/views/list_box_view.h"

#include <QHelpEvent>
#include <QItemSelection>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <numeric>

#include "desktop/text/plain_text.h"

namespace orvik {
namespace {

class RowDelegate : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // All rows are as high as a line of letters and as wide as the list, whatever they show, so
    // that a long one is cut off with an ellipsis.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& /*index*/) const override {
        return {0, textSize(option, QStringLiteral("X")).height()};
    }

    // The whole text of a row that is cut off.
    bool helpEvent(QHelpEvent* event,
                   QAbstractItemView* view,
                   const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip) {
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        }
        const QString text = index.data().toString();
        const bool cut_off = textSize(option, text).width() > option.rect.width();
        QToolTip::showText(
            event->globalPos(), cut_off ? PlainTip(text) : QString(), view, option.rect);
        return true;
    }

 private:
    static QSize textSize(const QStyleOptionViewItem& option, const QString& text) {
        QStyleOptionViewItem row = option;
        row.text = text;
        row.features |= QStyleOptionViewItem::HasDisplay;
        return row.widget->style()->sizeFromContents(
            QStyle::CT_ItemViewItem, &row, QSize(), row.widget);
    }
};

}  // namespace

ListBoxView::ListBoxView(ListBox& box, RunEvent run, std::function<void()> click, QWidget* parent)
    : QListView(parent), box_(box), run_(std::move(run)), click_(std::move(click)), model_(box) {
    setModel(&model_);
    setItemDelegate(new RowDelegate(this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    syncing_ = false;
}

void ListBoxView::sync() {
    const QScopedValueRollback syncing(syncing_, true);
    if (items_shown_ != box_.ItemsRevision()) {
        items_shown_ = box_.ItemsRevision();
        selection_shown_ = ~Revision{0};
        model_.refresh();
    }
    if (selection_shown_ != box_.SelectionRevision()) {
        selection_shown_ = box_.SelectionRevision();
        syncSelection();
    }
}

void ListBoxView::clickRow(int row) {
    const QModelIndex index = model_.index(row);
    {
        const QScopedValueRollback syncing(syncing_, true);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    scrollTo(index);
    reportClick(row);
}

int ListBoxView::widthOfNumbers() const {
    return fontMetrics().horizontalAdvance(QStringLiteral("00000000")) +
           verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

void ListBoxView::syncSelection() {
    QItemSelection selection;
    const std::vector<std::size_t>& rows = box_.Selected();
    for (std::size_t i = 0; i < rows.size();) {
        std::size_t end = i + 1;
        while (end < rows.size() && rows[end] == rows[end - 1] + 1) {
            ++end;
        }
        selection.select(model_.index(static_cast<int>(rows[i])),
                         model_.index(static_cast<int>(rows[end - 1])));
        i = end;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    // The cursor goes along with the other list's click, so that keys go on from there.
    if (rows.size() == 1) {
        selectionModel()->setCurrentIndex(model_.index(static_cast<int>(rows.front())),
                                          QItemSelectionModel::NoUpdate);
    }
}

std::vector<std::size_t> ListBoxView::selectedRows() const {
    std::vector<std::size_t> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        const std::size_t start = rows.size();
        rows.resize(start + static_cast<std::size_t>(range.height()));
        std::iota(rows.begin() + static_cast<std::ptrdiff_t>(start),
                  rows.end(),
                  static_cast<std::size_t>(range.top()));
    }
    return rows;
}

void ListBoxView::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (syncing_) {
        return;
    }
    clicked_ = true;
    if (handling_ == 0) {
        // No input event of this widget: a screen reader selected, for example.
        const QItemSelection& changed = selected.isEmpty() ? deselected : selected;
        const bool at_current = selected.contains(currentIndex()) || changed.isEmpty();
        reportClick(at_current ? currentIndex().row() : changed.last().bottom());
    }
}

bool ListBoxView::event(QEvent* event) {
    return reportingClick([&] { return QListView::event(event); });
}

bool ListBoxView::viewportEvent(QEvent* event) {
    return reportingClick([&] {
        // A press on a row is a click also when the selection stays as it is.
        if (event->type() == QEvent::MouseButtonPress) {
            const auto* const press = static_cast<QMouseEvent*>(event);
            clicked_ = press->button() == Qt::LeftButton && indexAt(press->pos()).isValid();
        }
        return QListView::viewportEvent(event);
    });
}

bool ListBoxView::reportingClick(const std::function<bool()>& handle) {
    ++handling_;
    const bool handled = handle();
    --handling_;
    if (handling_ == 0 && clicked_) {
        reportClick(currentIndex().row());
    }
    return handled;
}

void ListBoxView::reportClick(int row) {
    clicked_ = false;
    const bool taken = run_([this, row] {
        box_.Select(selectedRows());
        selection_shown_ = box_.SelectionRevision();
        box_.ListIndex = row;
        click_();
    });
    if (!taken) {
        selection_shown_ = ~Revision{0};
        sync();
    }
}

}  // namespace orvik
