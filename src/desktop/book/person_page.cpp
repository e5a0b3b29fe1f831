#include "desktop/book/person_page.h"

namespace orvik {

PersonPage::PersonPage(BookDocument& document, QWidget* parent)
    : QWidget(parent), document_(document) {
    setObjectName(QStringLiteral("personPage"));
}

void PersonPage::show(const BookDocument::Numbers& selected) {
    setEnabled(!selected.empty() && document_.isThere(selected.front()));
}

}  // namespace orvik
