#include "desktop/text/text_codec.h"

#include <algorithm>
#include <array>

namespace orvik {
namespace {

// Windows-1252's bytes 0x80 to 0x9F; all others are the letters of the same number.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned kFirstSpecial = 0x80;
constexpr unsigned kFirstPlain = 0xA0;

char16_t LetterOf(unsigned char byte) {
    return byte >= kFirstSpecial && byte < kFirstPlain ? kWindows1252.at(byte - kFirstSpecial)
                                                       : byte;
}

// The byte of a letter, -1 where Windows-1252 has none.
int ByteOf(char16_t letter) {
    if (letter < kFirstSpecial || (letter >= kFirstPlain && letter <= 0xFF)) {
        return letter;
    }
    const auto* const found = std::find(kWindows1252.begin(), kWindows1252.end(), letter);
    return found == kWindows1252.end()
               ? -1
               : static_cast<int>(kFirstSpecial + (found - kWindows1252.begin()));
}

// How many bytes a letter of a box text takes; both halves of a pair take two.
std::size_t BytesOf(char16_t letter, Encoding encoding) {
    switch (letter) {
        case kParagraphSeparator:
            return 2;
        case kLineSeparator:
        case kLineFeedSign:
            return 1;
        default:
            break;
    }
    if (encoding == Encoding::Windows1252 || letter < 0x80) {
        return 1;
    }
    return letter < 0x800 || QChar::isSurrogate(letter) ? 2 : 3;
}

}  // namespace

QString ToLetters(std::string_view bytes, Encoding encoding) {
    QString letters(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    QChar* to = letters.data();
    if (encoding == Encoding::Windows1252) {
        std::transform(bytes.begin(), bytes.end(), to, [](char byte) {
            return QChar(LetterOf(static_cast<unsigned char>(byte)));
        });
        return letters;
    }
    for (;;) {
        const std::string_view ascii = bytes.substr(0, AsciiLength(bytes));
        to = std::transform(ascii.begin(), ascii.end(), to, [](char byte) {
            return QChar(char16_t{static_cast<unsigned char>(byte)});
        });
        bytes.remove_prefix(ascii.size());
        if (bytes.empty()) {
            break;
        }
        const Utf8Letter next = FirstLetter(bytes);
        if (next.Length == 0) {
            *to++ = QChar(QChar::ReplacementCharacter);
            bytes.remove_prefix(1);
            continue;
        }
        for (const char16_t unit : QChar::fromUcs4(next.Code)) {
            *to++ = QChar(unit);
        }
        bytes.remove_prefix(next.Length);
    }
    letters.truncate(to - letters.constData());
    return letters;
}

bool CanEncode(QStringView letters, Encoding encoding) {
    return encoding == Encoding::Utf8 ||
           std::all_of(letters.begin(), letters.end(), [](QChar letter) {
               return ByteOf(letter.unicode()) >= 0;
           });
}

std::string ToBytes(QStringView letters, Encoding& encoding) {
    if (!CanEncode(letters, encoding)) {
        encoding = Encoding::Utf8;
    }
    if (encoding == Encoding::Utf8) {
        return letters.toUtf8().toStdString();
    }
    std::string bytes(static_cast<std::size_t>(letters.size()), '\0');
    std::transform(letters.begin(), letters.end(), bytes.begin(), [](QChar letter) {
        return static_cast<char>(ByteOf(letter.unicode()));
    });
    return bytes;
}

QString ToBoxText(std::string_view bytes, Encoding encoding) {
    return FromLineBreaks(ToLetters(bytes, encoding));
}

std::string FromBoxText(QStringView box_text, Encoding& encoding) {
    return ToBytes(WithLineBreaks(box_text), encoding);
}

QString WithLineBreaks(QStringView box_text) {
    const auto breaks = std::count(box_text.begin(), box_text.end(), QChar(kParagraphSeparator));
    QString letters(box_text.size() + breaks, Qt::Uninitialized);
    QChar* to = letters.data();
    for (const QChar letter : box_text) {
        switch (letter.unicode()) {
            case kParagraphSeparator:
                *to++ = u'\r';
                *to++ = u'\n';
                break;
            case kLineSeparator:
                *to++ = u'\r';
                break;
            case kLineFeedSign:
                *to++ = u'\n';
                break;
            default:
                *to++ = letter;
        }
    }
    return letters;
}

QString FromLineBreaks(QStringView letters) {
    QString box_text(letters.size(), Qt::Uninitialized);
    QChar* to = box_text.data();
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const QChar letter = letters[i];
        if (letter == u'\n') {
            *to++ = QChar(kLineFeedSign);
        } else if (letter != u'\r') {
            *to++ = letter;
        } else if (i + 1 < letters.size() && letters[i + 1] == u'\n') {
            *to++ = QChar(kParagraphSeparator);
            ++i;
        } else {
            *to++ = QChar(kLineSeparator);
        }
    }
    box_text.truncate(to - box_text.constData());
    return box_text;
}

std::size_t ByteOffset(QStringView box_text, qsizetype position, Encoding encoding) {
    std::size_t bytes = 0;
    for (const QChar letter : box_text.first(std::min(position, box_text.size()))) {
        bytes += BytesOf(letter.unicode(), encoding);
    }
    return bytes;
}

qsizetype BoxPosition(std::string_view bytes, std::size_t offset, Encoding encoding) {
    qsizetype position = 0;
    char before = '\0';
    for (const char byte : bytes.substr(0, offset)) {
        const auto value = static_cast<unsigned char>(byte);
        const bool inside_line_break = byte == '\n' && before == '\r';
        const bool inside_letter = encoding == Encoding::Utf8 && (value & 0xC0U) == 0x80;
        if (!inside_line_break && !inside_letter) {
            position += encoding == Encoding::Utf8 && value >= 0xF0 ? 2 : 1;
        }
        before = byte;
    }
    return position;
}

}  // namespace orvik
