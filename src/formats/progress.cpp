#include "formats/progress.h"

#include <algorithm>

namespace orvik {

int PercentMeter::PercentAt(std::size_t position) const {
    return static_cast<int>(static_cast<double>(position) / static_cast<double>(total_) * 100);
}

void PercentMeter::Report() {
    const int percent = PercentAt(next_);
    progress_.Percent(percent);
    // The next change is near (percent + 1) / 100 of the total; a step back covers the rounding.
    const double near = static_cast<double>(total_) / 100 * (percent + 1);
    next_ = std::max(next_ + 1, static_cast<std::size_t>(std::max(near - 2, 0.0)));
    while (next_ <= total_ && PercentAt(next_) <= percent) {
        ++next_;
    }
}

}  // namespace orvik
