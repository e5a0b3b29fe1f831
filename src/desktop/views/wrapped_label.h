// Labels for text of any length that comes from files.

#pragma once

class QLabel;

namespace orvik {

// Shows plain text in as many lines as it needs. A word that is wider than the label is cut: it
// does not widen the window.
void WrapText(QLabel& label);

}  // namespace orvik
