#include "desktop/find_bar.h"

#include <QAccessible>
#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QToolButton>

namespace orvik {
namespace {

constexpr int kFewestLetters = 8;
constexpr int kMargin = 2;

QToolButton* MakeIconButton(const QString& name, const QString& spoken, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName(name);
    button->setAccessibleName(spoken);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QToolButton* MakeStepButton(QAction& action, QWidget* parent) {
    const QString spoken = action.text().remove(u'&');
    auto* const button =
        MakeIconButton(action.objectName() + QStringLiteral("Button"), spoken, parent);
    button->setDefaultAction(&action);
    button->setToolTip(spoken + QStringLiteral(" (") +
                       action.shortcut().toString(QKeySequence::NativeText) + u')');
    return button;
}

}  // namespace

FindBar::FindBar(QAction& next, QAction& previous, QWidget* parent)
    : QWidget(parent), wanted_(new QLineEdit(this)), notice_(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    auto* const label = new QLabel(tr("Find &text:"), this);
    label->setObjectName(QStringLiteral("findLabel"));
    label->setBuddy(wanted_);
    wanted_->setObjectName(QStringLiteral("findText"));
    wanted_->setAccessibleName(tr("Find text"));
    wanted_->setMinimumWidth(fontMetrics().averageCharWidth() * kFewestLetters);
    notice_->setObjectName(QStringLiteral("findNotice"));
    auto* const close = MakeIconButton(QStringLiteral("findClose"), tr("Close the find bar"), this);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolTip(tr("Close (Esc)"));

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(2 * kMargin, kMargin, kMargin, kMargin);
    row->addWidget(label);
    row->addWidget(wanted_, 1);
    row->addWidget(MakeStepButton(previous, this));
    row->addWidget(MakeStepButton(next, this));
    row->addWidget(notice_);
    row->addWidget(close);

    connect(wanted_, &QLineEdit::textEdited, this, [this] { emit stepped(Step::Typed); });
    connect(close, &QToolButton::clicked, this, &FindBar::left);
    hide();
}

void FindBar::open() {
    show();
    wanted_->selectAll();
    wanted_->setFocus();
}

QString FindBar::wanted() const {
    return wanted_->text();
}

void FindBar::tell(const QString& notice) {
    if (notice_->text() == notice) {
        return;
    }
    notice_->setText(notice);
    wanted_->setAccessibleDescription(notice);
    if (!notice.isEmpty()) {
        QAccessibleEvent alert(notice_, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            emit left();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit stepped((event->modifiers() & Qt::ShiftModifier) != 0 ? Step::Previous
                                                                       : Step::Next);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace orvik
