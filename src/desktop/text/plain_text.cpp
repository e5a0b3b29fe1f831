#include "desktop/text/plain_text.h"

#include <QTextDocument>

#include "app/printable.h"
#include "desktop/text/short_text.h"

namespace orvik {

QString ShownName(std::string_view name) {
    return ShownName(ToShownLetters(name));
}

QString ShownName(const QString& name) {
    return QString::fromStdString(Printable(Shortened(name).toStdString()));
}

QString PlainTip(const QString& text) {
    const QString shown = Shortened(text);
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown;
}

}  // namespace orvik
