#include "desktop/book/move_preview_view.h"

#include <QCheckBox>
#include <QLabel>
#include <QStringList>
#include <QVBoxLayout>
#include <string>

#include "book_cli/told.h"
#include "book_cli/verbs.h"
#include "desktop/book/loss_view.h"
#include "desktop/text/short_text.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/link_button.h"
#include "desktop/views/wrapped_label.h"

namespace orvik {
namespace {

QLabel* MakeLabel(const QString& name, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setObjectName(name);
    WrapText(*label);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

// What to do where the file would hold more than the program takes.
QString TooManyText(const book_cli::ImportForm& form, const book_cli::TooMany& found) {
    QString text = QObject::tr("%1, and there are %2")
                       .arg(ToLetters(form.Why), QString::number(found.Records));
    if (found.Unlimited != nullptr) {
        text += QObject::tr("; a %1 file may hold all").arg(ToLetters(found.Unlimited->Ending));
    }
    return text;
}

}  // namespace

MovePreviewView::MovePreviewView(QWidget* parent)
    : QWidget(parent),
      counts_(MakeLabel(QStringLiteral("moveCounts"), this)),
      hints_(MakeLabel(QStringLiteral("moveHints"), this)),
      split_(new LinkButton(QStringLiteral("moveSplit"), tr("Split it"), this)),
      losses_(new LossView(this)),
      leave_out_(new QCheckBox(this)) {
    setObjectName(QStringLiteral("movePreview"));
    leave_out_->setObjectName(QStringLiteral("moveLeaveOut"));
    auto* const lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(counts_);
    lines->addWidget(hints_);
    lines->addWidget(split_);
    lines->addWidget(losses_, 1);
    lines->addWidget(leave_out_);
    // Without losses what is said stays at the top.
    lines->addStretch(0);
    connect(split_, &QAbstractButton::clicked, this, [this] {
        emit splitAsked(preview_->TooMany->Most);
    });
    connect(leave_out_, &QAbstractButton::toggled, this, &MovePreviewView::changed);
    showPreview(nullptr);
}

void MovePreviewView::showPreview(const std::shared_ptr<const MovePreview>& preview) {
    preview_ = preview;
    losses_->showPreview(preview);
    leave_out_->setChecked(false);
    const std::size_t lost = preview ? preview->lost() : 0;
    leave_out_->setText(
        tr("&Leave these out: %1 would be lost")
            .arg(QString::fromStdString(book_cli::Counted(lost, "value", "values"))));
    leave_out_->setVisible(lost > 0);
    losses_->setVisible(preview && !preview->Groups.empty());
    hints_->hide();
    // Also a screen reader that looks at what is hidden finds a name.
    hints_->setAccessibleName(tr("Hints"));
    split_->hide();
    counts_->setText(tr("What the file will hold is not known yet"));
    if (preview) {
        counts_->setText(Shortened(QString::fromStdString(preview->Counts)) + QStringLiteral("\n") +
                         QString::fromStdString(
                             book_cli::TargetName(preview->Chosen, preview->Whole.Unchanged)));
        showHints(*preview);
    }
    emit changed();
}

void MovePreviewView::showHints(const MovePreview& preview) {
    QStringList hints;
    if (preview.TooMany) {
        hints.append(TooManyText(*preview.Chosen.Form, *preview.TooMany));
        const QString files =
            QString::fromStdString(book_cli::Counted(preview.TooMany->Files, "file", "files"));
        split_->setText(tr("Split it into %1 of at most %2")
                            .arg(files, QString::number(preview.TooMany->Most)));
        split_->setAccessibleName(split_->text());
        split_->show();
    } else if (!preview.Parts.empty()) {
        hints.append(
            QString::fromStdString(book_cli::Counted(preview.Parts.size(), "file", "files")));
    }
    for (const std::string& one : preview.Hints) {
        hints.append(QString::fromStdString(one));
    }
    if (!hints.isEmpty()) {
        hints_->setText(Shortened(hints.join(u'\n')));
        hints_->setAccessibleName(hints_->text());
        hints_->show();
    }
}

bool MovePreviewView::mayBeSaved() const {
    return preview_ && !preview_->TooMany && (preview_->lost() == 0 || leave_out_->isChecked());
}

}  // namespace orvik
