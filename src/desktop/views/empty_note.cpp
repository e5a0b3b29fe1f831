#include "desktop/views/empty_note.h"

#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/views/link_button.h"

namespace orvik {

EmptyNote::EmptyNote(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("emptyNote"));
    setAccessibleName(tr("No book is open"));
    // It lies over the lists and looks as they do.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    auto* const open =
        new LinkButton(QStringLiteral("emptyOpen"), tr("Open an address book"), this);
    auto* const drop = new QLabel(tr("or drop one here, or"), this);
    drop->setTextFormat(Qt::PlainText);
    auto* const extract =
        new LinkButton(QStringLiteral("emptyExtract"), tr("extract addresses from any file"), this);
    // What the lists do not show.
    auto* const book =
        new LinkButton(QStringLiteral("emptyBook"), tr("Open a book with every field"), this);
    connect(open, &QAbstractButton::clicked, this, &EmptyNote::openAsked);
    connect(extract, &QAbstractButton::clicked, this, &EmptyNote::extractAsked);
    connect(book, &QAbstractButton::clicked, this, &EmptyNote::bookAsked);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(open, 0, Qt::AlignHCenter);
    column->addWidget(drop, 0, Qt::AlignHCenter);
    column->addWidget(extract, 0, Qt::AlignHCenter);
    // The sentence above ends there.
    column->addSpacing(fontMetrics().height() / 2);
    column->addWidget(book, 0, Qt::AlignHCenter);
    hide();
}

void EmptyNote::place(const QRect& area, bool wanted) {
    const QSize size = sizeHint();
    setVisible(wanted && size.width() <= area.width() && size.height() <= area.height());
    setGeometry(QStyle::alignedRect(Qt::LayoutDirectionAuto, Qt::AlignCenter, size, area));
}

}  // namespace orvik
