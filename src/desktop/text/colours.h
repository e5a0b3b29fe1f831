// Colours that can be told apart in every palette.

#pragma once

#include <QColor>
#include <QPalette>

namespace orvik {

// Contrast: how far two colours are apart for the eye, from 1 (not at all) to 21 (black and white).
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);

[[nodiscard]] bool IsDark(const QPalette& palette);

// LinkColour: that of the palette, brought nearer to black or white where it could hardly be read.
[[nodiscard]] QColor LinkColour(const QPalette& palette);

// QuietColour: that of letters, brought nearer to the paper as far as it can still be read.
[[nodiscard]] QColor QuietColour(const QPalette& palette);

// FocusColour: that of selections, made as visible on the paper as the edge of a control must be.
[[nodiscard]] QColor FocusColour(const QPalette& palette);

}  // namespace orvik
