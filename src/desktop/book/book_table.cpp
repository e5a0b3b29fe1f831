#include "desktop/book/book_table.h"

#include <QAction>
#include <QActionGroup>
#include <QFocusEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "desktop/book/book_table_model.h"
#include "desktop/book/cell_delegate.h"

namespace orvik {
namespace {

// In letters.
constexpr std::array<int, book::kColumns> kWidths = {24, 12, 30, 16, 16, 24, 22};
constexpr int kAroundRow = 6;
// A selection of more pieces is too slow to be drawn; the current row stays.
constexpr std::size_t kMostKept = 1000;

}  // namespace

BookTable::BookTable(const BookDocument& document,
                     BookRows& rows,
                     RecordEdits& edits,
                     QWidget* parent)
    : QTableView(parent),
      document_(document),
      rows_(rows),
      edits_(edits),
      delegate_(new CellDelegate(edits, this)),
      columns_(new QMenu(tr("&Columns"), this)),
      sorts_(new QMenu(tr("&Sort by"), this)) {
    setObjectName(QStringLiteral("bookTable"));
    setAccessibleName(tr("People and lists"));
    // Before the model hears of it.
    connect(&rows_, &BookRows::aboutToChange, this, &BookTable::rememberSelection);
    model_ = new BookTableModel(document, rows, edits, this);
    setModel(model_);
    connect(&rows_, &BookRows::changed, this, &BookTable::restoreSelection);
    setItemDelegate(delegate_);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked);
    // Tab goes on to the next control.
    setTabKeyNavigation(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    measure();
    addColumns();
    addSorting();
}

void BookTable::measure() {
    verticalHeader()->setMinimumSectionSize(fontMetrics().height());
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kAroundRow);
}

void BookTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        measure();
    }
}

void BookTable::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    const bool by_keys =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
        event->reason() == Qt::ShortcutFocusReason || event->reason() == Qt::OtherFocusReason;
    if (by_keys && selectedCount() == 0 && currentIndex().isValid()) {
        selectRow(currentIndex().row());
    }
}

void BookTable::addColumns() {
    columns_->setObjectName(QStringLiteral("columnsMenu"));
    for (std::size_t i = 0; i < book::kColumns; ++i) {
        const int column = static_cast<int>(i);
        setColumnWidth(column, kWidths.at(i) * fontMetrics().averageCharWidth());
        QAction* const shown =
            columns_->addAction(BookTableModel::titleOf(static_cast<book::Column>(i)));
        shown->setObjectName(QStringLiteral("column%1").arg(column));
        shown->setCheckable(true);
        shown->setChecked(true);
        connect(shown, &QAction::toggled, this, [this, column](bool is_shown) {
            setColumnHidden(column, !is_shown);
            syncColumns();
        });
    }
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(horizontalHeader(),
            &QWidget::customContextMenuRequested,
            this,
            &BookTable::showMenuOfHeader);
}

void BookTable::showMenuOfHeader(const QPoint& place) {
    columns_->popup(horizontalHeader()->mapToGlobal(place));
}

// The last column that is shown cannot be hidden.
void BookTable::syncColumns() {
    const QList<QAction*> all = columns_->actions();
    const auto shown =
        std::count_if(all.begin(), all.end(), [](const QAction* one) { return one->isChecked(); });
    for (QAction* const one : all) {
        one->setEnabled(shown > 1 || !one->isChecked());
    }
}

void BookTable::addSorting() {
    QHeaderView& header = *horizontalHeader();
    header.setSectionsClickable(true);
    header.setSortIndicatorShown(true);
    // The third click gives the order of the files back.
    header.setSortIndicatorClearable(true);
    header.setSortIndicator(-1, Qt::AscendingOrder);
    sorts_->setObjectName(QStringLiteral("sortMenu"));
    auto* const group = new QActionGroup(sorts_);
    const auto add = [&](const QString& text, int column, const QString& name) {
        QAction* const action = sorts_->addAction(text);
        action->setObjectName(name);
        action->setCheckable(true);
        action->setChecked(column < 0);
        group->addAction(action);
        connect(action, &QAction::triggered, &header, [&header, column] {
            header.setSortIndicator(column, Qt::AscendingOrder);
        });
        connect(&header, &QHeaderView::sortIndicatorChanged, action, [action, column](int now) {
            action->setChecked(now == column);
        });
    };
    for (std::size_t i = 0; i < book::kColumns; ++i) {
        add(BookTableModel::titleOf(static_cast<book::Column>(i)),
            static_cast<int>(i),
            QStringLiteral("sort%1").arg(i));
    }
    sorts_->addSeparator();
    add(tr("&Order of the files"), -1, QStringLiteral("sortNone"));
    sorts_->addSeparator();
    QAction* const turn = sorts_->addAction(tr("&Reverse"));
    turn->setObjectName(QStringLiteral("sortReverse"));
    turn->setEnabled(false);
    connect(turn, &QAction::triggered, &header, [&header] {
        header.setSortIndicator(header.sortIndicatorSection(),
                                header.sortIndicatorOrder() == Qt::AscendingOrder
                                    ? Qt::DescendingOrder
                                    : Qt::AscendingOrder);
    });
    connect(&header,
            &QHeaderView::sortIndicatorChanged,
            this,
            [this, turn](int column, Qt::SortOrder order) {
                turn->setEnabled(column >= 0);
                finishTyping();
                rows_.sortBy(
                    column < 0 ? std::nullopt : std::optional(static_cast<book::Column>(column)),
                    order == Qt::DescendingOrder);
            });
}

QByteArray BookTable::columnState() const {
    return horizontalHeader()->saveState();
}

void BookTable::setColumnState(const QByteArray& state) {
    QHeaderView& header = *horizontalHeader();
    if (!state.isEmpty()) {
        header.restoreState(state);
    }
    header.setSortIndicatorShown(true);
    header.setSortIndicatorClearable(true);
    header.setSectionsMovable(true);
    header.setSectionsClickable(true);
    header.setSortIndicator(-1, Qt::AscendingOrder);
    if (header.hiddenSectionCount() == header.count()) {
        header.showSection(0);
    }
    const QList<QAction*> all = columns_->actions();
    for (int i = 0; i < all.size(); ++i) {
        all[i]->setChecked(!header.isSectionHidden(i));
    }
    syncColumns();
}

BookDocument::Numbers BookTable::selected() const {
    std::vector<std::pair<int, int>> ranges;
    for (const QItemSelectionRange& one : selectionModel()->selection()) {
        ranges.emplace_back(one.top(), one.bottom());
    }
    std::sort(ranges.begin(), ranges.end());
    BookDocument::Numbers numbers;
    for (const auto& [top, bottom] : ranges) {
        const auto from = rows_.rows().begin() + top;
        numbers.insert(numbers.end(), from, from + (bottom - top + 1));
    }
    return numbers;
}

std::size_t BookTable::selectedCount() const {
    std::size_t count = 0;
    for (const QItemSelectionRange& one : selectionModel()->selection()) {
        count += static_cast<std::size_t>(one.height());
    }
    return count;
}

std::optional<int> BookTable::rowOf(BookDocument::Number record) const {
    const BookDocument::Numbers& rows = rows_.rows();
    const auto found = std::find(rows.begin(), rows.end(), record);
    return found == rows.end() ? std::nullopt
                               : std::optional(static_cast<int>(found - rows.begin()));
}

bool BookTable::showRecord(BookDocument::Number record) {
    const auto row = rowOf(record);
    if (!row) {
        return false;
    }
    const QModelIndex place = model_->index(*row, std::max(0, currentIndex().column()));
    selectionModel()->setCurrentIndex(
        place, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(place);
    return true;
}

void BookTable::typeIn(BookDocument::Number record, book::Column column) {
    const auto row = rowOf(record);
    if (!row) {
        return;
    }
    setColumnHidden(static_cast<int>(column), false);
    columns_->actions().at(static_cast<int>(column))->setChecked(true);
    const QModelIndex place = model_->index(*row, static_cast<int>(column));
    setFocus();
    selectionModel()->setCurrentIndex(
        place, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(place);
    edit(place);
}

bool BookTable::mayFinishTyping() {
    const QWidget* const editor = indexWidget(currentIndex());
    return editor == nullptr || !delegate_->refuses(*editor);
}

void BookTable::finishTyping() {
    if (QWidget* const editor = indexWidget(currentIndex()); editor != nullptr) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void BookTable::addPerson() {
    finishTyping();
    draft_ = edits_.addPerson();
    typeIn(*draft_, book::Column::Name);
}

void BookTable::removeSelected() {
    const BookDocument::Numbers records = selected();
    if (records.empty()) {
        return;
    }
    const int row = rowOf(records.front()).value_or(0);
    edits_.remove(records);
    if (const int last = model_->rowCount() - 1; last >= 0) {
        showRecord(model_->recordAt(std::min(row, last)));
    }
}

void BookTable::rememberSelection() {
    finishTyping();
    was_empty_ = model_->rowCount() == 0;
    kept_ = selectedCount() <= kMostKept ? selected() : BookDocument::Numbers();
    const QModelIndex current = currentIndex();
    kept_current_ =
        current.isValid() ? std::optional(model_->recordAt(current.row())) : std::nullopt;
    kept_column_ = std::max(0, current.column());
}

void BookTable::restoreSelection() {
    selectRows(kept_);
    if (const auto row = kept_current_ ? rowOf(*kept_current_) : std::nullopt) {
        const QModelIndex place = model_->index(*row, kept_column_);
        selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
        scrollTo(place);
    } else {
        scrollToTop();
    }
    // Who has read a book looks at somebody in it.
    if (was_empty_ && selectedCount() == 0 && model_->rowCount() > 0) {
        selectRow(0);
    }
    emit selectionMoved();
}

void BookTable::selectRows(const BookDocument::Numbers& records) {
    std::vector<bool> wanted(document_.count());
    for (const BookDocument::Number one : records) {
        wanted[one] = true;
    }
    QItemSelection selection;
    const BookDocument::Numbers& rows = rows_.rows();
    for (std::size_t i = 0; i < rows.size() && !records.empty(); ++i) {
        if (!wanted[rows[i]]) {
            continue;
        }
        const std::size_t top = i;
        while (i + 1 < rows.size() && wanted[rows[i + 1]]) {
            ++i;
        }
        selection.select(model_->index(static_cast<int>(top), 0),
                         model_->index(static_cast<int>(i), model_->columnCount() - 1));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void BookTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    emit selectionMoved();
}

void BookTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.isValid() && current.row() != previous.row() && draft_ &&
        model_->recordAt(current.row()) != *draft_) {
        dropDraft();
    }
    emit currentMoved();
}

void BookTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    QTableView::closeEditor(editor, hint);
    const bool goes_on = hint == QAbstractItemDelegate::EditNextItem ||
                         hint == QAbstractItemDelegate::EditPreviousItem;
    if (!goes_on) {
        dropDraft();
    }
}

// Not while the view is in the middle of something.
void BookTable::dropDraft() {
    if (const auto draft = std::exchange(draft_, std::nullopt)) {
        QMetaObject::invokeMethod(
            this, [this, record = *draft] { edits_.dropIfEmpty(record); }, Qt::QueuedConnection);
    }
}

void BookTable::keyboardSearch(const QString& letters) {
    if (!letters.trimmed().isEmpty()) {
        emit lettersTyped(letters);
    }
}

}  // namespace orvik
