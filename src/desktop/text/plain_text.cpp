#include "desktop/text/plain_text.h"

#include <QFile>
#include <QTextDocument>

#include "app/printable.h"
#include "desktop/text/text_codec.h"

namespace orvik {

QString ShownName(std::string_view name) {
    return ToLetters(Printable(name), Encoding::Utf8);
}

QString ShownName(const QString& name) {
    return ShownName(QFile::encodeName(name).toStdString());
}

QString PlainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace orvik
