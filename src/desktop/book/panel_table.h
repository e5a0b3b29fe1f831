// What the pages of the panel are made of: tables of rows, and boxes that are only read.

#pragma once

#include <QString>

class QAbstractItemModel;
class QPlainTextEdit;
class QTableView;
class QWidget;

namespace orvik {

// MakePanelTable: a table whose rows are selected as a whole, which Tab leaves, and in which what
// is not seen costs nothing.
[[nodiscard]] QTableView* MakePanelTable(const char* name,
                                         const QString& spoken,
                                         QAbstractItemModel& model,
                                         QWidget* parent);

// FitColumn: makes a column as wide as the rows that are seen need it, and no wider than others can
// bear.
void FitColumn(QTableView& table, int column);

// MakeReader: makes a box read-only, so high; Tab leaves it.
void MakeReader(QPlainTextEdit& box, const QString& spoken, int lines);

}  // namespace orvik
