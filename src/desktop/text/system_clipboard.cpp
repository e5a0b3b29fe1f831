#include "desktop/text/system_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <new>
#include <optional>

namespace orvik {
namespace {

const QString& PlainFormat() {
    static const QString name = QStringLiteral("text/plain");
    return name;
}

// A box text in UTF-8, as it is.
const QString& OwnFormat() {
    static const QString name = QStringLiteral("application/x-orvik-box-text");
    return name;
}

// The bytes of a whole book: letters are made of them when a program asks for some, in the form in
// which it asks. Few books on the clipboard are ever pasted.
class BookMime : public QMimeData {
 public:
    BookMime(std::string_view bytes, std::optional<Encoding> encoding)
        : bytes_(bytes), encoding_(encoding) {}

    [[nodiscard]] QString boxText() const {
        return ToBoxText(bytes_, encoding_ ? *encoding_ : EncodingOf(bytes_));
    }
    [[nodiscard]] QStringList formats() const override { return {PlainFormat(), OwnFormat()}; }

 protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override {
        // The window system asks outside of all events; who gets nothing there can ask again.
        try {
            return format == PlainFormat() ? plainText(type)
                   : format == OwnFormat() ? QVariant(boxText().toUtf8())
                                           : QVariant();
        } catch (const std::bad_alloc&) {
            return {};
        }
    }

 private:
    [[nodiscard]] QVariant plainText(QMetaType type) const {
        if (encoding_ == Encoding::Windows1252 || EncodingOf(bytes_) != Encoding::Utf8) {
            return WithLineBreaks(boxText());
        }
        // No letter in it stands for a line end, so each one stays what it is.
        if (type.id() == QMetaType::QByteArray) {
            return QByteArray(bytes_.data(), static_cast<qsizetype>(bytes_.size()));
        }
        return ToLetters(bytes_, Encoding::Utf8);
    }

    std::string bytes_;
    std::optional<Encoding> encoding_;  // none: that of the bytes
};

// Through UTF-8, as from another window of the program, a sign at the start goes.
QString WithoutMark(QString box_text) {
    if (box_text.startsWith(QChar(QChar::ByteOrderMark))) {
        box_text.remove(0, 1);
    }
    return box_text;
}

}  // namespace

QMimeData* MimeFromBoxText(QStringView box_text) {
    auto data = std::make_unique<QMimeData>();
    data->setText(WithLineBreaks(box_text));
    data->setData(OwnFormat(), box_text.toUtf8());
    return data.release();
}

QString BoxTextFromMime(const QMimeData& data) {
    if (const auto* const book = dynamic_cast<const BookMime*>(&data)) {
        return WithoutMark(book->boxText());
    }
    if (data.hasFormat(OwnFormat())) {
        return QString::fromUtf8(data.data(OwnFormat()));
    }
    // In one pass: QString::replace moves the rest of the text for each thousand of its line ends.
    const QString text = data.text();
    QString box_text(text.size(), Qt::Uninitialized);
    QChar* to = box_text.data();
    char16_t before = 0;
    for (const QChar letter : text) {
        if (letter == u'\n' && before == u'\r') {
            to[-1] = QChar(QChar::ParagraphSeparator);
        } else {
            *to++ = letter == u'\n'   ? QChar(QChar::ParagraphSeparator)
                    : letter == u'\r' ? QChar(QChar::LineSeparator)
                                      : letter;
        }
        before = letter.unicode();
    }
    box_text.truncate(to - box_text.constData());
    return box_text;
}

std::string ClipboardBytes(Encoding encoding) {
    return FromBoxText(ClipboardBoxText(), encoding);
}

void SetClipboardBytes(std::string_view bytes, std::optional<Encoding> encoding) {
    QGuiApplication::clipboard()->setMimeData(new BookMime(bytes, encoding));
}

QString ClipboardBoxText() {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    return data == nullptr ? QString() : BoxTextFromMime(*data);
}

}  // namespace orvik
