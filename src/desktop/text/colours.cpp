#include "desktop/text/colours.h"

#include <algorithm>
#include <cmath>

namespace orvik {
namespace {

// What accessibility guidelines ask of running text, and of what shows where the focus is.
constexpr double kReadable = 4.5;
constexpr double kVisible = 3;
constexpr int kSteps = 20;

// How bright a colour is for the eye, 0 to 1, as the guidelines compute it from sRGB.
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = colour.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
           0.0722 * linear(rgb.blueF());
}

QColor Mixed(const QColor& from, const QColor& to, double share) {
    const auto mix = [share](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * share));
    };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

// A colour of the palette, brought nearer to black or white until it is that far from the paper.
QColor Apart(const QPalette& palette, QPalette::ColorRole role, double contrast) {
    const QColor paper = palette.color(QPalette::Base);
    const QColor end = IsDark(palette) ? Qt::white : Qt::black;
    for (int step = 0; step < kSteps; ++step) {
        const QColor mixed = Mixed(palette.color(role), end, static_cast<double>(step) / kSteps);
        if (Contrast(mixed, paper) >= contrast) {
            return mixed;
        }
    }
    return end;
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    constexpr double kGlare = 0.05;
    return (light + kGlare) / (dark + kGlare);
}

bool IsDark(const QPalette& palette) {
    return Luminance(palette.color(QPalette::Base)) < Luminance(palette.color(QPalette::Text));
}

QColor LinkColour(const QPalette& palette) {
    return Apart(palette, QPalette::Link, kReadable);
}

QColor QuietColour(const QPalette& palette) {
    const QColor letters = palette.color(QPalette::Text);
    const QColor paper = palette.color(QPalette::Base);
    constexpr int kQuietest = kSteps / 2;
    for (int step = kQuietest; step > 0; --step) {
        const QColor mixed = Mixed(letters, paper, static_cast<double>(step) / kSteps);
        if (Contrast(mixed, paper) >= kReadable) {
            return mixed;
        }
    }
    return letters;
}

QColor FocusColour(const QPalette& palette) {
    return Apart(palette, QPalette::Highlight, kVisible);
}

}  // namespace orvik
