#include "desktop/text/plain_text.h"

#include <QStringList>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextOption>

#include "app/printable.h"
#include "desktop/text/short_text.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

// Of a name in a sentence.
constexpr qsizetype kNameLetters = 80;

// One line of a text as lines of at most kTipColumns letters.
QStringList Broken(const QString& text) {
    if (text.size() <= kTipColumns) {
        return {text};
    }
    QTextLayout layout(text);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setNumColumns(kTipColumns);
        lines.append(text.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
}

}  // namespace

QString ShownName(std::string_view name) {
    return ShownName(ToShownLetters(name));
}

QString ShownName(const QString& name) {
    return QString::fromStdString(Printable(Shortened(name).toStdString()));
}

QString ShortName(std::string_view name) {
    return WithoutMiddle(ShownName(WithoutMiddle(ToLetters(name), kMostShown - 1)), kNameLetters);
}

QString PlainTip(const QString& text) {
    QStringList lines;
    for (const QString& line : Shortened(text, kTipLetters).split(u'\n')) {
        lines += Broken(line);
    }
    const QString shown = lines.join(u'\n');
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown;
}

}  // namespace orvik
