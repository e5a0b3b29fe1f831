// What the main window shows while addresses are extracted.

#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "app/form1.h"
#include "extract/scan.h"

namespace orvik {

// The progress of one chunk: both panels and the progress bar, which goes when this does. Each
// percentage lets pending events run, so that Cancel can be pressed.
class ScanDisplay : public ScanProgress {
 public:
    // count is the number of addresses found so far.
    ScanDisplay(Form1& form, Platform& platform, const std::int16_t& count);
    ScanDisplay(const ScanDisplay&) = delete;
    ScanDisplay& operator=(const ScanDisplay&) = delete;
    ScanDisplay(ScanDisplay&&) = delete;
    ScanDisplay& operator=(ScanDisplay&&) = delete;
    ~ScanDisplay() override;
    void Percent(int percent) override;

 private:
    Form1& form_;
    Platform& platform_;
    const std::int16_t& count_;
};

// The controls of an extraction: Cancel in the middle of the window and, from the first chunk on,
// no other command. On every way out they are as they were before.
class ExtractionControls {
 public:
    explicit ExtractionControls(Form1& form);
    ExtractionControls(const ExtractionControls&) = delete;
    ExtractionControls& operator=(const ExtractionControls&) = delete;
    ExtractionControls(ExtractionControls&&) = delete;
    ExtractionControls& operator=(ExtractionControls&&) = delete;
    ~ExtractionControls();
    // Leaves Cancel as the only command.
    void ShowCancel();

 private:
    Form1& form_;
    // Each flag that is switched off, with its value before.
    std::vector<std::pair<bool*, bool>> enabled_;
};

}  // namespace orvik
