// A picture as a help page shows it.

#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>

namespace orvik {

// PictureNames: the files that may hold a picture, best first: that of dark windows on a dark page,
// and the large one on a screen with many dots.
//   "chooser.png", dark, 1 -> "chooser-dark.png", "chooser.png"
[[nodiscard]] QStringList PictureNames(const QString& name, bool dark, double dots_per_pixel);

// FramedPicture: in a frame, and no wider than that many pixels, frame included. A picture named
// "...@2x.png" has two dots per pixel.
[[nodiscard]] QImage FramedPicture(const QByteArray& bytes,
                                   const QString& name,
                                   int widest,
                                   double dots_per_pixel,
                                   const QColor& frame);

}  // namespace orvik
