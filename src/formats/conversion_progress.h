// The progress display of the writers: panel 1 and the progress bar of the main window.

#pragma once

#include "app/form1.h"
#include "formats/progress.h"

namespace orvik {

// Sets the display up when it is made. After a failure the display stays as it stands.
class ConversionProgress : public Progress {
 public:
    ConversionProgress(Form1& form, Platform& platform);
    void Percent(int percent) override;
    void Record() override;
    // The conversion came to its end: "Ready", and the bar goes.
    void Finish();

 private:
    Form1& form_;
    Platform& platform_;
    bool changed_ = false;
};

}  // namespace orvik
