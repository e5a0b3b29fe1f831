// The text of a box, as long as it may be.

#pragma once

class QMessageBox;

namespace orvik {

// Lets the text of a box be selected and copied. One of more than a few lines, such as a generated
// list, scrolls in a part of the box, so that its button stays on the screen.
void LetTextBeRead(QMessageBox& box);

}  // namespace orvik
