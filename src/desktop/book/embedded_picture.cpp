#include "desktop/book/embedded_picture.h"

#include <QBuffer>
#include <QByteArray>
#include <QCoreApplication>
#include <QImageReader>
#include <QLoggingCategory>
#include <string>

#include "book/picture_bytes.h"
#include "book/transfer.h"

namespace orvik {
namespace {

constexpr std::size_t kMostBytes = std::size_t{16} << 20U;
constexpr qint64 kMostPixels = 25'000'000;
// A JPEG may draw each pixel many times.
constexpr qint64 kMostDrawn = 100'000'000;
constexpr int kMostMegabytes = 256;

QString Tr(const char* text) {
    return QCoreApplication::translate("EmbeddedPicture", text);
}

EmbeddedPicture Without(const QString& why) {
    return {{}, why};
}

// Only what draws by itself: a drawing in SVG may name other files.
const char* NameOf(book::PictureForm form) {
    switch (form) {
        case book::PictureForm::Png:
            return "png";
        case book::PictureForm::Jpeg:
            return "jpeg";
        case book::PictureForm::Gif:
            return "gif";
        case book::PictureForm::Bmp:
            return "bmp";
        default:
            return nullptr;
    }
}

}  // namespace

EmbeddedPicture ReadPicture(std::string_view base64, const QSize& most) {
    const QString too_large = Tr("The picture is too large to be shown.");
    const QString damaged = Tr("The picture is damaged.");
    if (book::BytesOfBase64(base64) > kMostBytes) {
        return Without(too_large);
    }
    std::string bytes;
    if (!book::AppendBase64(base64, bytes)) {
        return Without(damaged);
    }
    const book::PictureForm form = book::PictureFormOf(bytes);
    const char* const name = NameOf(form);
    if (name == nullptr) {
        return Without(Tr("The picture is of a kind that is not shown."));
    }
    if (form == book::PictureForm::Png) {
        bytes = book::PngToDraw(bytes);
    }
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    // The page says that a picture is damaged.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio.*=false"));
    QImageReader::setAllocationLimit(kMostMegabytes);
    QImageReader reader(&buffer, name);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty()) {
        return Without(damaged);
    }
    const qint64 pixels = qint64{size.width()} * size.height();
    const std::size_t scans = form == book::PictureForm::Jpeg ? book::JpegScans(bytes) : 1;
    if (pixels > kMostPixels || static_cast<qint64>(scans) > kMostDrawn / pixels) {
        return Without(too_large);
    }
    if (size.width() > most.width() || size.height() > most.height()) {
        const QSize scaled = size.scaled(most, Qt::KeepAspectRatio);
        reader.setScaledSize(scaled.expandedTo(QSize(1, 1)));
    }
    reader.setAutoTransform(true);
    QImage image = reader.read();
    return image.isNull() ? Without(damaged) : EmbeddedPicture{std::move(image), {}};
}

}  // namespace orvik
