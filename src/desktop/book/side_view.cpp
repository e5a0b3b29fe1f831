#include "desktop/book/side_view.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

#include "book_cli/told.h"
#include "desktop/book/panel_table.h"
#include "desktop/book/shown_text.h"
#include "desktop/book/side_model.h"
#include "desktop/text/short_text.h"
#include "desktop/views/wrapped_label.h"

namespace orvik {
namespace {

// In letters: what a column takes at most when it is shown.
constexpr int kWidest = 28;
// And what a record is called above the table.
constexpr qsizetype kMostOfHeading = 60;

}  // namespace

SideView::SideView(const BookDocument& document, QWidget* parent)
    : QWidget(parent),
      document_(document),
      model_(new SideModel(document, this)),
      heading_(new QLabel(this)),
      table_(MakePanelTable("duplicatesBeside", tr("Records beside each other"), *model_, this)) {
    setObjectName(QStringLiteral("duplicatesSide"));
    heading_->setObjectName(QStringLiteral("duplicatesHeading"));
    WrapText(*heading_);
    // Alt and its letter lead to the table.
    heading_->setBuddy(table_);
    table_->setSelectionBehavior(QAbstractItemView::SelectItems);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(table_, &QTableView::activated, this, [this](const QModelIndex& index) {
        const int record = index.column() - SideModel::kFirstRecord;
        if (record >= 0 && index.column() < model_->mergedColumn()) {
            emit recordAsked(model_->records()[static_cast<std::size_t>(record)]);
        }
    });
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(heading_);
    column->addWidget(table_, 1);
    say(tr("Choose a group to see its records beside each other."));
}

void SideView::show(const BookDocument::Numbers& records) {
    model_->show(records);
    const std::size_t shown = model_->records().size();
    if (shown == 0) {
        heading_->setText(
            records.empty()
                ? QString()
                : tr("These records have too many fields to be shown beside each other."));
        return;
    }
    const QString name = WithoutMiddle(RecordName(document_, records.front()), kMostOfHeading);
    const auto count = [](std::size_t number) {
        return QString::fromStdString(book_cli::Grouped(number));
    };
    heading_->setText(
        shown < records.size()
            ? tr("The first %1 of %2 records of %3:").arg(shown).arg(count(records.size()), name)
            : tr("%1 records of %2:").arg(shown).arg(name));
    table_->resizeColumnsToContents();
    const int most = table_->fontMetrics().averageCharWidth() * kWidest;
    for (int i = 0; i < model_->columnCount(); ++i) {
        table_->setColumnWidth(i, std::min(table_->columnWidth(i), most));
    }
    table_->selectionModel()->setCurrentIndex(model_->index(0, 0), QItemSelectionModel::NoUpdate);
}

void SideView::say(const QString& text) {
    model_->show({});
    heading_->setText(text);
}

}  // namespace orvik
