#include "desktop/text/plain_text.h"

#include <QTextDocument>

#include "app/printable.h"
#include "desktop/text/text_codec.h"

namespace orvik {

QString ShownName(std::string_view name) {
    return ShownName(ToLetters(name));
}

QString ShownName(const QString& name) {
    return QString::fromStdString(Printable(name.toStdString()));
}

QString PlainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace orvik
