#include "desktop/views/find_bar.h"

#include <QAccessible>
#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>

#include "desktop/text/short_text.h"
#include "desktop/views/line_icon.h"

namespace orvik {
namespace {

constexpr int kFewestLetters = 8;
// Nobody looks for more, and each row is compared with all of them.
constexpr qsizetype kMostLetters = 1000;
constexpr int kMargin = 2;

QAction* AddAction(QWidget& window,
                   const char* name,
                   const QString& text,
                   const QKeySequence& keys) {
    auto* const action = new QAction(text, &window);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(keys);
    window.addAction(action);
    return action;
}

QString NotFound() {
    return FindBar::tr("Not found");
}
QString FromTheStart() {
    return FindBar::tr("From the start");
}
QString FromTheEnd() {
    return FindBar::tr("From the end");
}

// As wide as the longest notice, so that what is beside it stays where it is.
class Notice : public QLabel {
 public:
    using QLabel::QLabel;

    [[nodiscard]] QSize sizeHint() const override {
        int widest = 0;
        for (const QString& text : {NotFound(), FromTheStart(), FromTheEnd()}) {
            widest = std::max(widest, fontMetrics().horizontalAdvance(text));
        }
        return {widest + 2 * margin(), QLabel::sizeHint().height()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

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

FindBar::FindBar(QWidget& window, QWidget* parent)
    : QWidget(parent),
      find_(AddAction(window, "find", tr("&Find..."), QKeySequence::Find)),
      label_(new QLabel(tr("Find &text:"), this)),
      wanted_(new QLineEdit(this)),
      notice_(new Notice(this)) {
    setObjectName(QStringLiteral("findBar"));
    QAction* const previous =
        AddAction(window, "findPrevious", tr("Find &previous"), Qt::SHIFT | Qt::Key_F3);
    QAction* const next = AddAction(window, "findNext", tr("Find &next"), Qt::Key_F3);
    previous->setIcon(LineIcon(Drawing::Up));
    next->setIcon(LineIcon(Drawing::Down));
    label_->setObjectName(QStringLiteral("findLabel"));
    label_->setTextFormat(Qt::PlainText);
    label_->setBuddy(wanted_);
    wanted_->setObjectName(QStringLiteral("findText"));
    wanted_->setAccessibleName(tr("Find text"));
    LimitLength(*wanted_, kMostLetters);
    wanted_->setMinimumWidth(fontMetrics().averageCharWidth() * kFewestLetters);
    notice_->setObjectName(QStringLiteral("findNotice"));
    notice_->setTextFormat(Qt::PlainText);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(2 * kMargin, kMargin, kMargin, kMargin);
    row->addWidget(label_);
    row->addWidget(wanted_, 1);
    row->addWidget(MakeStepButton(*previous, this));
    row->addWidget(MakeStepButton(*next, this));
    row->addWidget(notice_);
    auto* const close = MakeIconButton(QStringLiteral("findClose"), tr("Close the find bar"), this);
    close->setIcon(LineIcon(Drawing::Close));
    close->setToolTip(tr("Close (Esc)"));
    row->addWidget(close);

    connect(find_, &QAction::triggered, this, &FindBar::asked);
    connect(next, &QAction::triggered, this, [this] { emit stepped(Step::Next); });
    connect(previous, &QAction::triggered, this, [this] { emit stepped(Step::Previous); });
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

QString FindBar::notice(bool found, bool wrapped, Step step) {
    if (!found) {
        return NotFound();
    }
    return !wrapped ? QString() : step == Step::Previous ? FromTheEnd() : FromTheStart();
}

void FindBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showLabel();
}

void FindBar::showLabel() {
    const int label = label_->sizeHint().width() + layout()->spacing();
    const int all = layout()->minimumSize().width() + (label_->isHidden() ? label : 0);
    label_->setVisible(all <= width());
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            emit left();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // Tool buttons leave these keys alone.
            if (auto* const button = qobject_cast<QToolButton*>(focusWidget())) {
                button->click();
                return;
            }
            emit stepped((event->modifiers() & Qt::ShiftModifier) != 0 ? Step::Previous
                                                                       : Step::Next);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace orvik
