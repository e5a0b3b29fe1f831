// A progress display that insists on percentages which grow.

#pragma once

#include "formats/progress.h"
#include "fuzz/fuzz_target.h"

namespace orvik::fuzz {

class CheckedProgress : public Progress {
 public:
    void Percent(int percent) override {
        Check(percent > percent_ && percent <= 100, "percentages grow up to 100");
        percent_ = percent;
    }
    void Record() override { ++records_; }

    [[nodiscard]] int LastPercent() const { return percent_; }
    [[nodiscard]] int Records() const { return records_; }

 private:
    int percent_ = -1;
    int records_ = 0;
};

}  // namespace orvik::fuzz
