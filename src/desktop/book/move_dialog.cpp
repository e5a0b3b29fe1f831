#include "desktop/book/move_dialog.h"

#include <utility>

namespace orvik {

MoveDialog::MoveDialog(BookDocument& document,
                       BookWorker& worker,
                       FileSystem& files,
                       BookDocument::Numbers records,
                       QWidget* parent)
    : QDialog(parent),
      document_(document),
      worker_(worker),
      files_(files),
      records_(std::move(records)) {
    setObjectName(QStringLiteral("moveDialog"));
}

}  // namespace orvik
