#include "desktop/book/work_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>

#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"

namespace orvik {
namespace {

constexpr int kBarLetters = 20;
constexpr qsizetype kTextLetters = 60;

}  // namespace

WorkBar::WorkBar(BookWorker& worker, QWidget* window)
    : QWidget(window),
      worker_(worker),
      label_(new QLabel(this)),
      progress_(new QProgressBar(this)) {
    setObjectName(QStringLiteral("workBar"));
    label_->setObjectName(QStringLiteral("workText"));
    label_->setTextFormat(Qt::PlainText);
    progress_->setObjectName(QStringLiteral("workProgress"));
    progress_->setAccessibleName(tr("Progress"));
    progress_->setMaximumWidth(fontMetrics().averageCharWidth() * kBarLetters);
    auto* const cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("workCancel"));
    cancel->setAccessibleName(tr("Cancel"));
    connect(cancel, &QPushButton::clicked, &worker_, &BookWorker::cancel);
    auto* const escape = new QShortcut(Qt::Key_Escape, window);
    escape->setEnabled(false);
    connect(escape, &QShortcut::activated, &worker_, &BookWorker::cancel);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label_);
    row->addWidget(progress_);
    row->addWidget(cancel);
    connect(&worker_, &BookWorker::began, this, [this, escape](const QString& what) {
        escape->setEnabled(true);
        show(what, 0);
        setVisible(true);
    });
    connect(&worker_, &BookWorker::progressed, this, [this](const QString& step, int percent) {
        show(step.isEmpty() ? worker_.what() : tr("%1: %2").arg(worker_.what(), ShownName(step)),
             percent);
    });
    connect(&worker_, &BookWorker::ended, this, [this, escape] {
        escape->setEnabled(false);
        hide();
    });
    hide();
}

void WorkBar::show(const QString& doing, int percent) {
    label_->setText(WithoutMiddle(doing, kTextLetters));
    progress_->setValue(percent);
}

}  // namespace orvik
