#include "desktop/book/move_summary.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvik {
namespace {

QPushButton* MakeButton(const QString& name, const QString& text, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

MoveSummary::MoveSummary(QWidget* parent)
    : QWidget(parent),
      text_(new QPlainTextEdit(this)),
      keep_(MakeButton(QStringLiteral("moveKeep"), tr("&Save summary..."), this)),
      copy_(MakeButton(QStringLiteral("moveCopy"), tr("&Copy"), this)),
      folder_(MakeButton(QStringLiteral("moveFolder"), tr("Show in &folder"), this)),
      back_(MakeButton(QStringLiteral("moveBack"), tr("&Move to another program"), this)) {
    setObjectName(QStringLiteral("moveSummary"));
    text_->setObjectName(QStringLiteral("moveSummaryText"));
    text_->setReadOnly(true);
    text_->setTabChangesFocus(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setAccessibleName(tr("Summary"));
    auto* const label = new QLabel(tr("Saved. &This was done:"), this);
    label->setObjectName(QStringLiteral("moveSaved"));
    label->setBuddy(text_);
    auto* const row = new QHBoxLayout;
    row->addWidget(keep_);
    row->addWidget(copy_);
    row->addWidget(folder_);
    row->addStretch(1);
    row->addWidget(back_);
    auto* const lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(label);
    lines->addWidget(text_, 1);
    lines->addLayout(row);
    connect(keep_, &QAbstractButton::clicked, this, &MoveSummary::keepAsked);
    connect(folder_, &QAbstractButton::clicked, this, &MoveSummary::folderAsked);
    connect(back_, &QAbstractButton::clicked, this, &MoveSummary::backAsked);
    connect(copy_, &QAbstractButton::clicked, this, [this] {
        QGuiApplication::clipboard()->setText(text_->toPlainText());
    });
}

void MoveSummary::showText(const QString& text) {
    text_->setPlainText(text);
    text_->setFocus();
}

void MoveSummary::setBusy(bool busy) {
    keep_->setDisabled(busy);
    back_->setDisabled(busy);
}

}  // namespace orvik
