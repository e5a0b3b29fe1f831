#include "formats/conversion_progress.h"

#include <string>

namespace orvik {

ConversionProgress::ConversionProgress(Form1& form, Platform& platform)
    : form_(form), platform_(platform) {
    form_.StatusBar1.PanelSizing = AutoSize::Contents;
    form_.ProgressBar1.Visible = true;
}

void ConversionProgress::Percent(int percent) {
    form_.ProgressBar1.Value = percent;
    form_.StatusBar1.SetPanelText(1, "Converting: " + std::to_string(percent) + "%");
    changed_ = true;
}

// A repaint that shows nothing new is left out, so a million records cost a hundred repaints.
void ConversionProgress::Record() {
    if (changed_) {
        changed_ = false;
        platform_.Repaint();
    }
}

void ConversionProgress::Finish() {
    form_.StatusBar1.SetPanelText(1, "Ready");
    form_.StatusBar1.PanelSizing = AutoSize::Spring;
    form_.ProgressBar1.Visible = false;
}

}  // namespace orvik
