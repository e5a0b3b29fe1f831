#include "desktop/views/list_box_view.h"

#include <QHelpEvent>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <numeric>

#include "desktop/text/plain_text.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

// The size of a row with this text.
QSize SizeOf(const QStyleOptionViewItem& option, const QString& text) {
    QStyleOptionViewItem row = option;
    row.text = text;
    row.features |= QStyleOptionViewItem::HasDisplay;
    return row.widget->style()->sizeFromContents(
        QStyle::CT_ItemViewItem, &row, QSize(), row.widget);
}

class RowDelegate : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // All rows are as high as a line of letters and as wide as the list, whatever they show, so
    // that a long one is cut off with an ellipsis.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& /*index*/) const override {
        return {0, SizeOf(option, QStringLiteral("X")).height()};
    }
};

// A mouse or key event as it would be with Ctrl held; with Shift it stays as it is.
template <class Event, class... Rest>
Event WithControl(const Event& event, Rest... rest) {
    const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
    return Event(
        event.type(), rest..., event.modifiers() | (shift ? Qt::NoModifier : Qt::ControlModifier));
}

}  // namespace

ListBoxView::ListBoxView(ListBox& box, RunEvent run, std::function<void()> click, QWidget* parent)
    : QListView(parent), box_(box), run_(std::move(run)), click_(std::move(click)), model_(box) {
    setModel(&model_);
    setItemDelegate(new RowDelegate(this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Beyond the last row there is nothing to count, but there are pixels.
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTextElideMode(Qt::ElideRight);
    viewport()->setMouseTracking(true);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (!measuring_) {
            emit scrolled(value);
        }
    });
    syncing_ = false;
}

void ListBoxView::showNumbers(const QString& hint) {
    adds_clicks_ = true;
    hint_ = hint;
    setAccessibleDescription(hint);
}

void ListBoxView::findLongest() {
    std::string_view longest;
    for (std::size_t i = 0; i < box_.Items().size(); ++i) {
        longest =
            std::max(longest, box_.Items()[i], [](auto a, auto b) { return a.size() < b.size(); });
    }
    longest_ = ToLetters(longest);
}

void ListBoxView::sync() {
    const QScopedValueRollback syncing(syncing_, true);
    if (hasOtherItems()) {
        items_shown_ = box_.ItemsRevision();
        selection_shown_ = ~Revision{0};
        model_.refresh();
        if (adds_clicks_) {
            findLongest();
        }
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

void ListBoxView::focusRow(int row) {
    const QScopedValueRollback syncing(syncing_, true);
    const QModelIndex index = model_.index(row);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    if (index.isValid()) {
        scrollTo(index);
    }
}

void ListBoxView::setScrolledRows(int rows) {
    scrolled_rows_ = rows;
    updateGeometries();
}

void ListBoxView::setCovered(int width) {
    if (viewportMargins().right() != width) {
        setViewportMargins(0, 0, width, 0);
    }
}

// Qt's own range ends at this list's last row. To set it moves the scroll bar, which has to stay.
void ListBoxView::updateGeometries() {
    QScrollBar& bar = *verticalScrollBar();
    const QScopedValueRollback measuring(measuring_, true);
    const int value = bar.value();
    QListView::updateGeometries();
    const int row = sizeOf(QStringLiteral("X")).height();
    const int rows = std::max(scrolled_rows_, model_.rowCount());
    bar.setRange(0, std::max(0, rows * row - viewport()->height()));
    bar.setSingleStep(row);
    bar.setPageStep(viewport()->height());
    bar.setValue(value);
    setVerticalScrollBarPolicy(shows_scroll_bar_ && bar.maximum() > 0 ? Qt::ScrollBarAlwaysOn
                                                                      : Qt::ScrollBarAlwaysOff);
}

QSize ListBoxView::sizeOf(const QString& text) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return SizeOf(option, text);
}

void ListBoxView::showTip(const QPoint& place, const QPoint& on_screen) {
    const QModelIndex index = indexAt(place);
    const QString text = index.data().toString();
    const bool cut_off = index.isValid() && sizeOf(text).width() > viewport()->width();
    QToolTip::showText(on_screen, cut_off ? PlainTip(text) : hint_, viewport(), visualRect(index));
}

QItemSelectionModel::SelectionFlags ListBoxView::selectionCommand(const QModelIndex& index,
                                                                  const QEvent* event) const {
    if (adds_clicks_ && event != nullptr) {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseMove: {
                const auto& mouse = *static_cast<const QMouseEvent*>(event);
                const QMouseEvent held = WithControl(mouse,
                                                     mouse.position(),
                                                     mouse.globalPosition(),
                                                     mouse.button(),
                                                     mouse.buttons());
                return QListView::selectionCommand(index, &held);
            }
            case QEvent::KeyPress: {
                const auto& key = *static_cast<const QKeyEvent*>(event);
                const QKeyEvent held = WithControl(key, key.key());
                return QListView::selectionCommand(index, &held);
            }
            default:
                break;
        }
    }
    return QListView::selectionCommand(index, event);
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
        // The row is in sight in the list that was clicked.
        setAutoScroll(false);
        selectionModel()->setCurrentIndex(model_.index(static_cast<int>(rows.front())),
                                          QItemSelectionModel::NoUpdate);
        setAutoScroll(true);
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
    if (event->type() == QEvent::ToolTip) {
        const auto& help = *static_cast<QHelpEvent*>(event);
        showTip(help.pos(), help.globalPos());
        return true;
    }
    if (event->type() == QEvent::MouseMove && isActiveWindow()) {
        const auto& move = *static_cast<QMouseEvent*>(event);
        if (move.buttons() == Qt::NoButton) {
            showTip(move.position().toPoint(), move.globalPosition().toPoint());
        }
    }
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
