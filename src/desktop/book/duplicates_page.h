// The page of the Book window's panel with records that may be one person.

#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "desktop/book/duplicates.h"
#include "desktop/session/file_dialog.h"
#include "platform/file_system.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace orvik {

class DuplicatesModel;
class PlanErrors;
class QuietLine;
class SideView;

class DuplicatesPage : public QWidget {
    Q_OBJECT
 public:
    // All must outlive the page.
    DuplicatesPage(BookDocument& document, BookWorker& worker, FileSystem& files, QWidget* parent);

    [[nodiscard]] Duplicates& duplicates() { return *duplicates_; }

 signals:
    // The table is to show this record.
    void recordAsked(std::uint32_t record);

 protected:
    bool eventFilter(QObject* button, QEvent* event) override;

 private:
    QPushButton* makeButton(const char* name, const QString& text, const QString& tip);
    void makeTable();
    void arrange();
    void connectAll();
    // What is seen besides the groups: counts, and what can be done.
    void sync();
    void keepFocus();
    void syncStatus();
    void syncTiers();
    void filter();
    void keepPlace();
    void returnToPlace();
    void showGroup();
    [[nodiscard]] Duplicates::Lines selected() const;
    // Those that are there.
    [[nodiscard]] BookDocument::Numbers recordsOf(Duplicates::Line line) const;
    void say(book::Decision decision);
    void askForPlan(DialogKind kind);

    BookDocument& document_;
    Duplicates* duplicates_;
    DuplicatesModel* model_;
    FileDialogs dialogs_;
    QPushButton* look_;
    QPushButton* save_;
    QPushButton* load_;
    QLabel* status_;
    QComboBox* tiers_;
    QCheckBox* undecided_;
    QTableView* groups_;
    QPushButton* merge_;
    QPushButton* keep_;
    QPushButton* later_;
    QPushButton* merge_sure_;
    QPushButton* merge_ticked_;
    QStackedWidget* below_;
    SideView* side_;
    PlanErrors* errors_;
    QuietLine* quiet_;
    // Who had the focus when work began.
    QPointer<QWidget> focus_;
    // Where the user was before the rows became others.
    int place_ = 0;
    Duplicates::Line line_ = 0;
};

}  // namespace orvik
