#include "desktop/book/duplicates_page.h"

namespace orvik {

DuplicatesPage::DuplicatesPage(BookDocument& document,
                               BookWorker& worker,
                               FileSystem& files,
                               QWidget* parent)
    : QWidget(parent), document_(document), worker_(worker), files_(files) {
    setObjectName(QStringLiteral("duplicatesPage"));
    setEnabled(!worker_.isBusy() && document_.thereCount() > 0);
}

}  // namespace orvik
