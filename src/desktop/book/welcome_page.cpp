#include "desktop/book/welcome_page.h"

#include <QFont>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/views/link_button.h"

namespace orvik {
namespace {

constexpr double kHeading = 1.4;

QLabel* AddLabel(QVBoxLayout& column, const char* name, const QString& text) {
    auto* const label = new QLabel(text);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter);
    column.addWidget(label, 0, Qt::AlignHCenter);
    return label;
}

}  // namespace

WelcomePage::WelcomePage(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("welcomePage"));
    setAccessibleName(tr("No address book is open"));
    // It looks as the table does.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    auto* const column = new QVBoxLayout(this);
    column->addStretch();
    QLabel* const heading =
        AddLabel(*column, "welcomeHeading", tr("See what an address book holds, and move it"));
    QFont larger = heading->font();
    larger.setPointSizeF(larger.pointSizeF() * kHeading);
    heading->setFont(larger);
    column->addSpacing(fontMetrics().height());
    AddLabel(*column,
             "welcomeText",
             tr("Open the address books of any program, old ones too:\n"
                "each person with every field, what looks wrong, and who may be there twice.\n"
                "Then move all of it to another program, after a look at what would be lost.\n"
                "Your files stay as they are"));
    column->addSpacing(fontMetrics().height());
    auto* const open =
        new LinkButton(QStringLiteral("welcomeOpen"), tr("Open an address book"), this);
    connect(open, &QAbstractButton::clicked, this, &WelcomePage::openAsked);
    column->addWidget(open, 0, Qt::AlignHCenter);
    AddLabel(*column, "welcomeDrop", tr("or drop files here"));
    column->addStretch();
    setFocusProxy(open);
}

}  // namespace orvik
