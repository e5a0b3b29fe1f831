#include "desktop/views/wrapped_label.h"

#include <QLabel>

namespace orvik {

void WrapText(QLabel& label) {
    label.setTextFormat(Qt::PlainText);
    label.setWordWrap(true);
    // Without one, it is as wide as the longest word.
    label.setMinimumWidth(1);
}

}  // namespace orvik
