#include "desktop/views/quiet_line.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <utility>

#include "desktop/text/short_text.h"
#include "desktop/views/link_button.h"
#include "desktop/views/wrapped_label.h"

namespace orvik {
namespace {

constexpr int kAroundLine = 2;

}  // namespace

QuietLine::QuietLine(const QString& name, QWidget* parent)
    : QWidget(parent),
      label_(new QLabel(this)),
      link_(new LinkButton(name + QStringLiteral("Link"), QString(), this)) {
    setObjectName(name);
    label_->setObjectName(name + QStringLiteral("Text"));
    WrapText(*label_);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(2 * kAroundLine, kAroundLine, 2 * kAroundLine, kAroundLine);
    row->addWidget(label_, 1);
    row->addWidget(link_, 0, Qt::AlignBottom);
    connect(link_, &QAbstractButton::clicked, this, [this] {
        // What it runs may change what is said.
        const Follow follow = follow_;
        follow();
    });
    say({}, {});
    hide();
}

void QuietLine::tell(const QString& text, const QString& link, Follow follow) {
    follow_ = std::move(follow);
    say(text, link);
    show();
    QAccessibleEvent alert(label_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void QuietLine::clear() {
    if (!isHidden()) {
        say({}, {});
        hide();
    }
}

// Also a screen reader that looks at what is hidden finds names.
void QuietLine::say(const QString& whole, const QString& link) {
    const QString text = Shortened(whole);
    label_->setText(text);
    label_->setAccessibleName(text.isEmpty() ? tr("Notice") : text);
    link_->setText(link);
    link_->setAccessibleName(link.isEmpty() ? tr("Nothing to do") : link);
    link_->setVisible(!link.isEmpty());
}

QString QuietLine::text() const {
    return label_->text();
}

int QuietLine::heightIn(int width) const {
    return isHidden() ? 0 : layout()->totalHeightForWidth(width);
}

}  // namespace orvik
