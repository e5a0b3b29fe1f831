#include "book/csv_sheet.h"

#include <algorithm>
#include <string>

#include "book/value_form.h"

namespace orvik::book {
namespace {

// Columns are known by so many rows at most.
constexpr std::size_t kRowsLookedAt = 200;
// A row of more is none of an address book; the rest of it is kept as cells without a column.
constexpr std::size_t kMostColumns = 4096;

// Where separators may be parts of letters, the text is decoded as a whole.
std::string_view TextOf(Book& book, std::uint32_t file, Charset& charset) {
    const std::string_view text = book.SourceAt(file).Text();
    const bool escapes = text.find("\x1B$") != std::string_view::npos;
    const std::string_view first = text.substr(0, text.find_first_of("\r\n"));
    if (charset.IsUtf8() || (!escapes && first.find('|') == std::string_view::npos)) {
        return text;
    }
    const PieceCharset piece = charset.Judge({&text, 1}, 1);
    std::size_t bad = 0;
    const std::string_view decoded = charset.Decode(text, piece, book.Texts(), bad);
    if (bad > 0) {
        book.Told.Add({{},
                       book.Keep(std::to_string(bad)),
                       file,
                       1,
                       FieldNames::kNone,
                       What::Doubtful,
                       Reason::NoLetter});
    }
    return decoded;
}

}  // namespace

CsvSheet::CsvSheet(Book& book, std::uint32_t file, Charset& charset, FormOf form)
    : book_(book),
      file_(file),
      charset_(charset),
      text_(TextOf(book, file, charset)),
      decoded_(text_.data() != book.SourceAt(file).Text().data()),
      form_(form(text_)),
      rows_(Rows()) {
    const std::string_view before = text_.substr(0, text_.find_first_of("\r\n"));
    if (form_.FirstLine > 1 && !before.starts_with('#')) {
        book_.Told.Add({{}, before, file_, 1, FieldNames::kNone, What::Skipped, Reason::NotBegun});
    }
    Look();
    CsvRow header;
    if (form_.HasHeader) {
        rows_.Next(header);
    }
}

// From the first row on; the line that names the separator is counted, too.
CsvRows CsvSheet::Rows() const {
    return {text_.substr(form_.From), form_.Separator, book_.Texts(), form_.FirstLine};
}

void CsvSheet::TakeHeader(const CsvRow& row) {
    header_bytes_ = row.Cells;
    header_bytes_.resize(std::min(header_bytes_.size(), kMostColumns));
    header_piece_ =
        decoded_ || charset_.IsUtf8() ? PieceCharset::Utf8 : charset_.Judge(row.Cells, row.Number);
    std::size_t bad = 0;
    for (const std::string_view cell : header_bytes_) {
        const std::string_view text =
            decoded_ ? cell : charset_.Decode(cell, header_piece_, book_.Texts(), bad);
        header_.push_back(WithoutBlanksAround(text));
    }
    if (bad > 0 || row.Doubt != Reason::None) {
        const Reason reason = bad > 0 ? Reason::NoLetter : row.Doubt;
        book_.Told.Add(
            {{}, row.DoubtAt, file_, row.Number, FieldNames::kNone, What::Doubtful, reason});
    }
}

// The header and the cells of the first rows, by which columns are known.
void CsvSheet::Look() {
    CsvRows rows = Rows();
    CsvRow row;
    if (form_.HasHeader && rows.Next(row)) {
        TakeHeader(row);
    }
    top_.Header = header_;
    top_.Columns = header_.size();
    for (std::size_t i = 0; i < kRowsLookedAt && rows.Next(row); ++i) {
        top_.Ragged = top_.Ragged || (i > 0 && header_.empty() && row.Cells.size() != top_.Columns);
        row.Cells.resize(std::min(row.Cells.size(), kMostColumns));
        top_.Columns = header_.empty() ? std::max(top_.Columns, row.Cells.size()) : top_.Columns;
        top_.Cells.resize(std::max(top_.Cells.size(), row.Cells.size()));
        for (std::size_t k = 0; k < row.Cells.size(); ++k) {
            if (!WithoutBlanksAround(row.Cells[k]).empty()) {
                top_.Cells[k].push_back(row.Cells[k]);
            }
        }
    }
}

bool CsvSheet::SkipsHeader(const CsvRow& row) {
    if (row.Cells.size() <= 1 || row.Cells != header_bytes_) {
        return false;
    }
    book_.Told.Add({{},
                    row.Cells[0],
                    file_,
                    row.Number,
                    FieldNames::kNone,
                    What::Skipped,
                    Reason::HeaderAgain});
    return true;
}

bool CsvSheet::Next(CsvRow& row) {
    while (rows_.Next(row)) {
        // The end of a file of DOS.
        const bool end = row.Cells.size() == 1 && row.Cells[0] == "\x1A";
        if (!end && !SkipsHeader(row)) {
            return true;
        }
    }
    return false;
}

Origin CsvSheet::OriginOf(const CsvRow& row) const {
    Origin from{file_, row.Number, row.Last - row.Number + 1, 0, 0};
    if (!decoded_) {
        from.Offset = book_.SourceAt(file_).OffsetOf(row.Span.data());
        from.Bytes = static_cast<std::uint32_t>(row.Span.size());
    }
    return from;
}

void CsvSheet::ShowHeader() {
    for (std::size_t i = 0; header_piece_ == PieceCharset::Other && i < header_.size(); ++i) {
        charset_.Example(header_bytes_[i]);
    }
}

}  // namespace orvik::book
