#include "desktop/book/problem_fix.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "book/address_check.h"
#include "book/address_repair.h"
#include "desktop/book/shown_text.h"
#include "desktop/text/short_text.h"
#include "desktop/views/link_button.h"
#include "desktop/views/wrapped_label.h"

namespace orvik {

ProblemFix::ProblemFix(QWidget* parent)
    : QWidget(parent),
      label_(new QLabel(this)),
      text_(new QLineEdit(this)),
      verdict_(new QLabel(this)),
      offer_(new LinkButton(QStringLiteral("problemFixOffer"), QString(), this)),
      change_(new QPushButton(tr("C&hange"), this)) {
    setObjectName(QStringLiteral("problemFix"));
    label_->setObjectName(QStringLiteral("problemFixLabel"));
    label_->setTextFormat(Qt::PlainText);
    label_->setBuddy(text_);
    text_->setObjectName(QStringLiteral("problemFixText"));
    LimitLength(*text_, kMostTyped);
    verdict_->setObjectName(QStringLiteral("problemFixVerdict"));
    WrapText(*verdict_);
    change_->setObjectName(QStringLiteral("problemFixChange"));
    auto* const cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("problemFixCancel"));

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(change_);
    buttons->addWidget(cancel);
    auto* const rows = new QGridLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(label_, 0, 0);
    rows->addWidget(text_, 0, 1);
    rows->addWidget(verdict_, 1, 1);
    rows->addWidget(offer_, 2, 1, Qt::AlignLeft);
    rows->addLayout(buttons, 3, 0, 1, 2);

    connect(text_, &QLineEdit::textChanged, this, &ProblemFix::check);
    connect(text_, &QLineEdit::returnPressed, this, &ProblemFix::finish);
    connect(change_, &QAbstractButton::clicked, this, &ProblemFix::finish);
    connect(cancel, &QAbstractButton::clicked, this, &ProblemFix::left);
    connect(offer_, &QAbstractButton::clicked, this, [this] {
        // The text changes, and the offer with it.
        const QString meant = meant_;
        text_->setText(meant);
        text_->setFocus();
    });
    begin({}, true);
    hide();
}

void ProblemFix::begin(const QString& text, bool is_address) {
    is_address_ = is_address;
    label_->setText(is_address ? tr("&Address:") : tr("&Value:"));
    text_->setAccessibleName(is_address ? tr("Address") : tr("Value"));
    text_->setText(text);
    before_ = text_->text();
    check();
    show();
    text_->selectAll();
    text_->setFocus();
}

void ProblemFix::check() {
    const std::string typed = text_->text().toStdString();
    meant_.clear();
    QString verdict;
    if (is_address_) {
        const book::CheckedAddress checked = book::CheckAddress(typed);
        verdict = checked.Class() == book::AddressClass::Valid
                      ? tr("A valid address")
                      : ShownLine(std::string(NameOf(checked.Class())) + ": " + checked.Reason());
        meant_ = QString::fromStdString(book::SurelyMeant(typed));
    }
    verdict_->setText(verdict);
    verdict_->setAccessibleName(verdict.isEmpty() ? tr("Nothing to be said") : verdict);
    verdict_->setVisible(is_address_);
    const QString offer = tr("Use %1").arg(ShownLine(meant_.toStdString()));
    offer_->setText(Shortened(offer));
    offer_->setAccessibleName(Shortened(offer));
    offer_->setVisible(!meant_.isEmpty());
    // What holds nothing is left out instead.
    change_->setEnabled(text_->text() != before_ && !text_->text().trimmed().isEmpty());
}

void ProblemFix::finish() {
    if (change_->isEnabled()) {
        emit done(text_->text());
    }
}

void ProblemFix::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        emit left();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace orvik
