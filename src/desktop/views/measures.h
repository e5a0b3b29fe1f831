// Twips on the screen: 1440 are one logical inch.

#pragma once

#include <cmath>

namespace orvik {

inline constexpr double kTwipsPerInch = 1440;

//   ToTwips(96, 96) -> 1440
[[nodiscard]] inline double ToTwips(int pixels, int dots_per_inch) {
    return pixels * kTwipsPerInch / dots_per_inch;
}

//   ToPixels(1440, 96) -> 96
[[nodiscard]] inline int ToPixels(double twips, int dots_per_inch) {
    return static_cast<int>(std::lround(twips * dots_per_inch / kTwipsPerInch));
}

}  // namespace orvik
