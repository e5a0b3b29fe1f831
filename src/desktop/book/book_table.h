// The table of a Book window: its columns, what is selected, and typing in it.

#pragma once

#include <QByteArray>
#include <QTableView>
#include <optional>

#include "book/table_columns.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_rows.h"
#include "desktop/book/record_edits.h"

class QMenu;

namespace orvik {

class BookTableModel;
class CellDelegate;

class BookTable : public QTableView {
    Q_OBJECT
 public:
    // All must outlive the table.
    BookTable(const BookDocument& document, BookRows& rows, RecordEdits& edits, QWidget* parent);

    // The selected records, from above; and how many there are.
    [[nodiscard]] BookDocument::Numbers selected() const;
    [[nodiscard]] std::size_t selectedCount() const;
    // Selects a record and scrolls to it; false if it is in no row.
    bool showRecord(BookDocument::Number record);

    // Begins to type in a cell of a record that is in a row.
    void typeIn(BookDocument::Number record, book::Column column);
    // Whether what is being typed can be taken over; if not, it is told why.
    [[nodiscard]] bool mayFinishTyping();
    // Takes it over. What is refused goes.
    void finishTyping();
    void addPerson();
    void removeSelected();

    // The menus with which columns are shown, and by which records are sorted.
    [[nodiscard]] QMenu& columnsMenu() const { return *columns_; }
    [[nodiscard]] QMenu& sortMenu() const { return *sorts_; }
    // Widths, order and what is hidden; what is not understood is left alone.
    [[nodiscard]] QByteArray columnState() const;
    void setColumnState(const QByteArray& state);

    // Letters that are typed where nothing takes them.
    void keyboardSearch(const QString& letters) override;

 signals:
    void selectionMoved();
    void currentMoved();
    void lettersTyped(const QString& letters);

 protected:
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void changeEvent(QEvent* event) override;
    // Whoever comes by keys has a row selected at once.
    void focusInEvent(QFocusEvent* event) override;

 private:
    void addColumns();
    void addSorting();
    void measure();
    void syncColumns();
    void showMenuOfHeader(const QPoint& place);
    void rememberSelection();
    void restoreSelection();
    void selectRows(const BookDocument::Numbers& records);
    [[nodiscard]] std::optional<int> rowOf(BookDocument::Number record) const;
    void dropDraft();

    const BookDocument& document_;
    BookRows& rows_;
    RecordEdits& edits_;
    BookTableModel* model_ = nullptr;
    CellDelegate* delegate_;
    QMenu* columns_;
    QMenu* sorts_;
    // What there was, and what was selected, before rows came or went.
    bool was_empty_ = true;
    BookDocument::Numbers kept_;
    std::optional<BookDocument::Number> kept_current_;
    int kept_column_ = 0;
    // Somebody who was added and has no field yet.
    std::optional<BookDocument::Number> draft_;
};

}  // namespace orvik
