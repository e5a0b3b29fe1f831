// The picture that stands in a record. Any bytes may stand there, so nothing is drawn that could
// take long or much; nothing that a record only names is opened.

#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <string_view>

namespace orvik {

struct EmbeddedPicture {
    QImage Image;
    QString Why;  // there is none; empty for a picture
};

// ReadPicture: the picture of base64 bytes, made as small as it is to be shown, in pixels.
[[nodiscard]] EmbeddedPicture ReadPicture(std::string_view base64, const QSize& most);

}  // namespace orvik
