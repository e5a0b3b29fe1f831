#include "book/source_excerpt.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "book/charset.h"
#include "book/charset_converter.h"
#include "book/lines.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

constexpr std::size_t kMostLines = 400;
constexpr std::size_t kLongestLine = 2000;

// Reads bytes of a file as they were read when the book was.
class Letters {
 public:
    explicit Letters(const std::string& other) : other_(CharsetConverter::Named(other)) {}

    void Append(std::string_view bytes, PieceCharset piece, std::string& text) {
        if (piece == PieceCharset::Other && other_) {
            other_->Append(bytes, text);
        } else {
            AppendUtf8(bytes, text);
        }
    }

 private:
    std::optional<CharsetConverter> other_;
};

PieceCharset Judged(std::string_view bytes) {
    Utf8Count count;
    return JudgeBytes({&bytes, 1}, count);
}

// Where to begin to count lines.
struct Anchor {
    std::size_t Offset = 0;
    std::uint32_t Line = 1;
};

Anchor AnchorOf(const Book& book,
                const RecordOrigins& records,
                std::uint32_t file,
                std::uint32_t line) {
    const std::uint32_t record = records.LastBegun(file, line);
    if (record == RecordOrigins::kNobody) {
        return {};
    }
    const Origin& from = book.Contacts[record].From;
    // Tables that were decoded as a whole know no bytes.
    return from.Bytes == 0 ? Anchor{} : Anchor{from.Offset, from.Line};
}

}  // namespace

Excerpt ExcerptOf(const Book& book,
                  const RecordOrigins& records,
                  const ExcerptPlace& place,
                  const std::string& other) {
    const Source& source = book.SourceAt(place.File);
    const std::uint32_t first = place.Line - std::min(place.Around, place.Line - 1);
    const std::uint64_t end = std::uint64_t{place.Line} + place.Lines + place.Around;
    const Anchor anchor = AnchorOf(book, records, place.File, first);
    Letters letters(other);
    Excerpt excerpt;
    Lines lines(source.Text().substr(anchor.Offset), source.Signs().Cr);
    std::uint32_t record = RecordOrigins::kNobody;
    std::size_t near = 0;
    PieceCharset piece = PieceCharset::Utf8;
    for (Line line; lines.Next(line);) {
        const std::uint32_t number = anchor.Line + line.Number - 1;
        if (number < first) {
            continue;
        }
        if (number >= end || excerpt.Lines.size() == kMostLines) {
            excerpt.IsCut = number < end;
            break;
        }
        const std::uint32_t of = records.RecordAt(place.File, number, near);
        if (of == RecordOrigins::kNobody) {
            piece = Judged(line.Text);
        } else if (of != record) {
            piece = Judged(book.BytesOf(book.Contacts[of]));
        }
        record = of;
        ExcerptLine& shown = excerpt.Lines.emplace_back();
        shown.Number = number;
        shown.IsCut = line.Text.size() > kLongestLine;
        std::string_view some = line.Text.substr(0, kLongestLine);
        // No letter of UTF-8 is cut, nor one that is told by the byte before it.
        while (shown.IsCut && !some.empty() && static_cast<unsigned char>(some.back()) >= 0x80) {
            some.remove_suffix(1);
        }
        letters.Append(some, piece, shown.Text);
    }
    return excerpt;
}

}  // namespace orvik::book
