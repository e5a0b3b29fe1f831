#include "desktop/book/problems_page.h"

namespace orvik {

ProblemsPage::ProblemsPage(BookDocument& document, BookWorker& worker, QWidget* parent)
    : QWidget(parent), document_(document), worker_(worker) {
    setObjectName(QStringLiteral("problemsPage"));
    setEnabled(!worker_.isBusy() && document_.thereCount() > 0);
}

}  // namespace orvik
