// What a screen reader is told of the views that Qt does not know.

#pragma once

namespace orvik {

// The windows beside the main window are dialogs, and a picture box is a picture or a progress bar.
// Told once is told for the whole run; telling it again does nothing.
void DescribeViews();

}  // namespace orvik
