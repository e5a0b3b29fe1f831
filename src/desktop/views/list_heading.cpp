#include "desktop/views/list_heading.h"

#include <QPainter>
#include <QStyleOptionHeader>

namespace orvik {
namespace {

QStyleOptionHeader OptionOf(const QAbstractButton& heading) {
    QStyleOptionHeader option;
    option.initFrom(&heading);
    option.text = heading.text();
    option.textAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.orientation = Qt::Horizontal;
    // With a line at its end, where the other one begins.
    option.position = QStyleOptionHeader::Beginning;
    option.state |= QStyle::State_Horizontal;
    option.state.setFlag(QStyle::State_Sunken, heading.isDown());
    option.state.setFlag(QStyle::State_Raised, !heading.isDown());
    return option;
}

}  // namespace

ListHeading::ListHeading(const QString& name,
                         const QString& text,
                         const QString& does,
                         QWidget* parent)
    : DrawnButton(parent) {
    setObjectName(name);
    setText(text);
    setToolTip(does);
    setAccessibleName(text);
    setAccessibleDescription(does);
    setFocusPolicy(Qt::TabFocus);
    // It is drawn anew when the pointer comes and goes.
    setAttribute(Qt::WA_Hover);
}

QSize ListHeading::sizeHint() const {
    const QStyleOptionHeader option = OptionOf(*this);
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), this);
}

void ListHeading::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QStyleOptionHeader option = OptionOf(*this);
    style()->drawControl(QStyle::CE_HeaderSection, &option, &painter, this);
    // The text begins where that of the rows does.
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
    option.rect.adjust(margin, 0, -margin, 0);
    style()->drawControl(QStyle::CE_HeaderLabel, &option, &painter, this);
    drawFocus(painter, rect().adjusted(1, 1, -1, -1));
}

}  // namespace orvik
