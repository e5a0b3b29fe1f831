// The page of the Book window's panel with what was assumed about the files, and what looks wrong.

#pragma once

#include <QWidget>
#include <cstdint>
#include <optional>
#include <vector>

#include "book/problems.h"
#include "book/source_excerpt.h"
#include "desktop/book/book_checks.h"
#include "desktop/book/book_document.h"

class QComboBox;
class QPlainTextEdit;
class QPushButton;
class QTableView;

namespace orvik {

class ProblemFix;
class ProblemList;
class ProblemModel;
class QuietLine;
class SourceText;

class ProblemsPage : public QWidget {
    Q_OBJECT
 public:
    // Both must outlive the page.
    ProblemsPage(BookDocument& document, BookChecks& checks, QWidget* parent);

 signals:
    // The table is to show this record.
    void recordAsked(std::uint32_t record);

 protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    void makeTable();
    void arrange();
    void fitColumns();
    void connectAll();
    // Looks at the document again, and shows what there is.
    void look();
    void showList();
    void fillKinds();
    void showState();
    void showCurrent();
    [[nodiscard]] std::optional<book::ExcerptPlace> linesFor(const book::Problem& one) const;
    void followSelection();
    void showButtons();
    void setCurrentRow(int row);
    void ask(const QModelIndex& index);
    void beginFix();
    void endFix();
    // The selected ones, and the one that is looked at; null for none.
    [[nodiscard]] std::vector<book::Problem> selected() const;
    [[nodiscard]] const book::Problem* current() const;

    BookDocument& document_;
    BookChecks& checks_;
    // More was found out while somebody was typing.
    bool is_late_ = false;
    ProblemList* list_;
    ProblemModel* model_;
    QComboBox* kinds_;
    QuietLine* state_;
    QTableView* table_;
    QPlainTextEdit* detail_;
    QPushButton* fix_button_;
    QPushButton* keep_button_;
    QPushButton* leave_out_button_;
    ProblemFix* fix_;
    SourceText* source_;
};

}  // namespace orvik
