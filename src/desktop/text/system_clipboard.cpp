#include "desktop/text/system_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace orvik {
namespace {

// A box text in UTF-8, as it is.
const QString& OwnFormat() {
    static const QString name = QStringLiteral("application/x-orvik-box-text");
    return name;
}

}  // namespace

QMimeData* MimeFromBoxText(QStringView box_text) {
    auto data = std::make_unique<QMimeData>();
    data->setText(WithLineBreaks(box_text));
    data->setData(OwnFormat(), box_text.toUtf8());
    return data.release();
}

QString BoxTextFromMime(const QMimeData& data) {
    if (data.hasFormat(OwnFormat())) {
        return QString::fromUtf8(data.data(OwnFormat()));
    }
    // In one pass: QString::replace moves the rest of the text for each thousand of its line ends.
    const QString text = data.text();
    QString box_text;
    box_text.reserve(text.size());
    char16_t before = 0;
    for (const QChar letter : text) {
        if (letter == u'\n' && before == u'\r') {
            box_text.back() = QChar(QChar::ParagraphSeparator);
        } else {
            box_text.append(letter == u'\n'   ? QChar(QChar::ParagraphSeparator)
                            : letter == u'\r' ? QChar(QChar::LineSeparator)
                                              : letter);
        }
        before = letter.unicode();
    }
    return box_text;
}

std::string ClipboardBytes(Encoding encoding) {
    return FromBoxText(ClipboardBoxText(), encoding);
}

void SetClipboardBytes(std::string_view bytes, Encoding encoding) {
    QGuiApplication::clipboard()->setMimeData(MimeFromBoxText(ToBoxText(bytes, encoding)));
}

QString ClipboardBoxText() {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    return data == nullptr ? QString() : BoxTextFromMime(*data);
}

}  // namespace orvik
