#include "desktop/help/help_picture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace orvik {
namespace {

QString Large() {
    return QStringLiteral("@2x");
}

}  // namespace

QStringList PictureNames(const QString& name, bool dark, double dots_per_pixel) {
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString stem = name.left(dot);
    const QString ending = dot < 0 ? QString() : name.mid(dot);
    QStringList stems;
    if (dark) {
        stems << stem + QStringLiteral("-dark");
    }
    stems << stem;
    QStringList names;
    for (const QString& each : stems) {
        if (dots_per_pixel > 1) {
            names << each + Large() + ending;
        }
        names << each + ending;
    }
    return names;
}

QImage FramedPicture(const QByteArray& bytes,
                     const QString& name,
                     int widest,
                     double dots_per_pixel,
                     const QColor& frame) {
    const QImage picture = QImage::fromData(bytes);
    if (picture.isNull()) {
        return {};
    }
    const double scale = dots_per_pixel / (name.contains(Large()) ? 2 : 1);
    const int line = std::max(1, static_cast<int>(dots_per_pixel));
    const int most = std::max(1, static_cast<int>(widest * dots_per_pixel) - 2 * line);
    const int width = std::clamp(static_cast<int>(std::lround(picture.width() * scale)), 1, most);
    const QImage inside =
        width == picture.width() ? picture : picture.scaledToWidth(width, Qt::SmoothTransformation);
    QImage framed(inside.width() + 2 * line, inside.height() + 2 * line, QImage::Format_RGB32);
    framed.fill(frame);
    QPainter(&framed).drawImage(line, line, inside);
    framed.setDevicePixelRatio(dots_per_pixel);
    return framed;
}

}  // namespace orvik
