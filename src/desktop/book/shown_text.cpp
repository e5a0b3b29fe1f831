#include "desktop/book/shown_text.h"

#include <QCoreApplication>
#include <algorithm>

#include "app/printable.h"
#include "book/source.h"
#include "book/typed_views.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"

namespace orvik {
namespace {

QString ToLetters(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString PlaceIn(std::string_view file, std::uint32_t line) {
    const QString name = ShortName(file);
    return line == 0 ? name
                     : QCoreApplication::translate("Book", "%1, line %2")
                           .arg(name, QString::number(line));
}

}  // namespace

QString ShownLine(std::string_view text) {
    std::string_view some = text.substr(0, kMostOfLine);
    const bool is_cut = some.size() < text.size();
    // The last letter may be cut.
    while (is_cut && !some.empty() && static_cast<unsigned char>(some.back()) >= 0x80) {
        some.remove_suffix(1);
    }
    return ToLetters(Printable(PrintableLine(some))) +
           (is_cut ? QStringLiteral("\u2026") : QString());
}

QString ShownLines(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n\t"), text.size());
        shown += Printable(text.substr(0, end));
        text.remove_prefix(end);
        if (text.empty()) {
            break;
        }
        shown += text.front() == '\t' ? '\t' : '\n';
        text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    }
    return ToLetters(shown);
}

QString RecordName(const BookDocument& document, BookDocument::Number record) {
    const std::string name = book::NameOf(document.book(), document.at(record)).Shown;
    return name.empty() ? QCoreApplication::translate("Book", "(no name)") : ShownLine(name);
}

QString PlaceWords(const book::Book& book, std::uint32_t file, std::uint32_t line) {
    return PlaceIn(book.SourceAt(file).Name(), line);
}

QString NearPlace(const book::Book& book, std::uint32_t file, std::uint32_t line) {
    return PlaceIn(book::FileNameOf(book.SourceAt(file).Name()), line);
}

QString ShortPlace(std::uint32_t line) {
    return QCoreApplication::translate("Book", "line %1").arg(line);
}

}  // namespace orvik
