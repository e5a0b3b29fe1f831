// The order in which the Tab key goes through a window.

#pragma once

class QWidget;

namespace orvik {

// OrderTabs: Tab goes through a window as its layouts have it, which is the order in which it is
// read, and not in the order in which its widgets were made.
void OrderTabs(QWidget& window);

}  // namespace orvik
