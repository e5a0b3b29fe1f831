#include "extract/extraction_display.h"

#include <string>

namespace orvik {

ScanDisplay::ScanDisplay(Form1& form, Platform& platform, const std::int16_t& count)
    : form_(form), platform_(platform), count_(count) {
    form_.StatusBar1.PanelSizing = AutoSize::Contents;
    form_.ProgressBar1.Visible = true;
}

ScanDisplay::~ScanDisplay() {
    form_.StatusBar1.PanelSizing = AutoSize::Spring;
    form_.ProgressBar1.Visible = false;
}

void ScanDisplay::Percent(int percent) {
    form_.StatusBar1.SetPanelText(1, "Extracting: " + std::to_string(percent) + "%");
    form_.StatusBar1.SetPanelText(2, std::to_string(count_) + " addresses found ");
    form_.ProgressBar1.Value = percent;
    platform_.Yield();
}

ExtractionControls::ExtractionControls(Form1& form) : form_(form) {
    for (bool* const flag : {&form_.cmdEmail.Enabled,
                             &form_.cmdNick.Enabled,
                             &form_.mnuFile.Enabled,
                             &form_.mnuEdit.Enabled,
                             &form_.mnuOrvik.Enabled,
                             &form_.mnuHelp.Enabled}) {
        enabled_.emplace_back(flag, *flag);
    }
    form_.cmdCancel.Left = (form_.ScaleWidth - form_.cmdCancel.Width) / 2;
    form_.cmdCancel.Top = (form_.ScaleHeight - form_.cmdCancel.Height) / 2;
}

ExtractionControls::~ExtractionControls() {
    for (const auto& [flag, before] : enabled_) {
        *flag = before;
    }
    form_.cmdCancel.Visible = false;
}

void ExtractionControls::ShowCancel() {
    for (const auto& [flag, before] : enabled_) {
        *flag = false;
    }
    form_.cmdCancel.Visible = true;
}

}  // namespace orvik
