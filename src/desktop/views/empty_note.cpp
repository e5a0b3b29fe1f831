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
    // What the lists do not show, and the command that reads it.
    auto* const book = new QLabel(tr("Every field of a book, in a terminal:") +
                                      QStringLiteral("\norvik-book convert FILE -o new.vcf"),
                                  this);
    book->setObjectName(QStringLiteral("emptyBook"));
    book->setTextFormat(Qt::PlainText);
    book->setTextInteractionFlags(Qt::TextSelectableByMouse);
    book->setAlignment(Qt::AlignHCenter);
    connect(open, &QAbstractButton::clicked, this, &EmptyNote::openAsked);
    connect(extract, &QAbstractButton::clicked, this, &EmptyNote::extractAsked);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(open, 0, Qt::AlignHCenter);
    column->addWidget(drop, 0, Qt::AlignHCenter);
    column->addWidget(extract, 0, Qt::AlignHCenter);
    column->addWidget(book, 0, Qt::AlignHCenter);
    hide();
}

void EmptyNote::place(const QRect& area, bool wanted) {
    const QSize size = sizeHint();
    setVisible(wanted && size.width() <= area.width() && size.height() <= area.height());
    setGeometry(QStyle::alignedRect(Qt::LayoutDirectionAuto, Qt::AlignCenter, size, area));
}

}  // namespace orvik
