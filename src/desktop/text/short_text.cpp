#include "desktop/text/short_text.h"

#include <QAccessible>
#include <QLineEdit>
#include <QToolTip>
#include <QValidator>

#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

constexpr QChar kEllipsis(0x2026);

class LengthValidator : public QValidator {
 public:
    LengthValidator(qsizetype most, QObject* parent) : QValidator(parent), most_(most) {}
    State validate(QString& text, int& /*position*/) const override {
        return text.size() > most_ ? Invalid : Acceptable;
    }

 private:
    qsizetype most_;
};

}  // namespace

QString Shortened(const QString& text, qsizetype most) {
    if (text.size() <= most) {
        return text;
    }
    // A pair of surrogates is one letter.
    return text.left(text.at(most - 1).isHighSurrogate() ? most - 1 : most) + kEllipsis;
}

QString WithoutMiddle(const QString& text, qsizetype most) {
    if (text.size() <= most) {
        return text;
    }
    // A pair of surrogates is one letter.
    const qsizetype half = most / 2;
    const qsizetype begin = text.at(half - 1).isHighSurrogate() ? half - 1 : half;
    const qsizetype end =
        text.size() - (text.at(text.size() - half).isLowSurrogate() ? half - 1 : half);
    return text.left(begin) + kEllipsis + text.mid(end);
}

QString ToShownLetters(std::string_view bytes) {
    const Encoding encoding = EncodingOf(bytes);
    auto most = static_cast<std::size_t>(kMostShown);
    if (bytes.size() <= most) {
        return ToLetters(bytes, encoding);
    }
    const auto is_inside = [bytes](std::size_t i) {
        return (static_cast<unsigned char>(bytes[i]) & 0xC0U) == 0x80;
    };
    while (encoding == Encoding::Utf8 && is_inside(most)) {
        --most;
    }
    return ToLetters(bytes.substr(0, most), encoding) + kEllipsis;
}

void LimitLength(QLineEdit& field, qsizetype most) {
    // One more is enough to see that it is too long, and the field keeps no more than that.
    field.setMaxLength(static_cast<int>(most) + 1);
    field.setValidator(new LengthValidator(most, &field));
    QObject::connect(
        &field, &QLineEdit::inputRejected, &field, [&field, most] { TellTooLong(field, most); });
}

void TellTooLong(QWidget& field, qsizetype most) {
    const QString told = QObject::tr("No more than %1 letters fit in here.").arg(most);
    QToolTip::showText(field.mapToGlobal(QPoint(0, field.height())), told, &field);
    QAccessibleEvent alert(&field, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace orvik
