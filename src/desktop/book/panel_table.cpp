#include "desktop/book/panel_table.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QTableView>
#include <algorithm>

namespace orvik {
namespace {

constexpr int kAroundLine = 6;
// Of the width of a table, for a column beside the one that matters.
constexpr int kShare = 3;

}  // namespace

QTableView* MakePanelTable(const char* name,
                           const QString& spoken,
                           QAbstractItemModel& model,
                           QWidget* parent) {
    auto* const table = new QTableView(parent);
    table->setObjectName(QLatin1String(name));
    table->setAccessibleName(spoken);
    QHeaderView& rows = *table->verticalHeader();
    rows.hide();
    rows.setSectionResizeMode(QHeaderView::Fixed);
    rows.setDefaultSectionSize(table->fontMetrics().lineSpacing() + kAroundLine);
    rows.setMinimumSectionSize(1);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    // Only rows that are seen are measured.
    table->horizontalHeader()->setResizeContentsPrecision(0);
    table->setModel(&model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->setShowGrid(false);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    return table;
}

void FitColumn(QTableView& table, int column) {
    table.resizeColumnToContents(column);
    table.setColumnWidth(column,
                         std::min(table.columnWidth(column), table.viewport()->width() / kShare));
}

void MakeReader(QPlainTextEdit& box, const QString& spoken, int lines) {
    box.setAccessibleName(spoken);
    box.setReadOnly(true);
    box.setTabChangesFocus(true);
    box.setUndoRedoEnabled(false);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    const int frame = 2 * box.frameWidth() + kAroundLine;
    box.setFixedHeight(lines * box.fontMetrics().lineSpacing() + frame + kAroundLine);
}

}  // namespace orvik
