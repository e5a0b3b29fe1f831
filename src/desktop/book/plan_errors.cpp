#include "desktop/book/plan_errors.h"

#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>

#include "desktop/views/wrapped_label.h"

namespace orvik {

PlanErrors::PlanErrors(QWidget* parent)
    : QWidget(parent),
      heading_(new QLabel(this)),
      lines_(new QStringListModel(this)),
      close_(new QPushButton(tr("&Close"), this)) {
    setObjectName(QStringLiteral("planErrors"));
    heading_->setObjectName(QStringLiteral("planErrorsHeading"));
    WrapText(*heading_);
    auto* const list = new QListView(this);
    list->setObjectName(QStringLiteral("planErrorsList"));
    list->setAccessibleName(tr("What is wrong with the plan"));
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setUniformItemSizes(true);
    list->setModel(lines_);
    heading_->setBuddy(list);
    close_->setObjectName(QStringLiteral("planErrorsClose"));
    connect(close_, &QPushButton::clicked, this, &PlanErrors::closed);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(heading_);
    column->addWidget(list, 1);
    column->addWidget(close_, 0, Qt::AlignRight);
}

void PlanErrors::show(const QString& file, const QStringList& errors) {
    heading_->setText(tr("%1 cannot be used, and nothing was done:").arg(file));
    lines_->setStringList(errors);
    close_->setFocus();
}

}  // namespace orvik
