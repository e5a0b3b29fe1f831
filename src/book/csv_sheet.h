// A table as its rows stand in a file: the header, what columns are known by, and the rows below.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "book/address_book.h"
#include "book/charset.h"
#include "book/csv_columns.h"
#include "book/csv_form.h"
#include "book/csv_rows.h"

namespace orvik::book {

class CsvSheet {
 public:
    // Looks at the header and the first rows. All must outlive this. form says how a text is a
    // table, as it is asked of its letters.
    using FormOf = CsvForm (*)(std::string_view text);
    CsvSheet(Book& book, std::uint32_t file, Charset& charset, FormOf form = LikelyCsvForm);

    [[nodiscard]] const CsvTop& Top() const { return top_; }
    // Whether rows are letters already: where separators may be parts of letters, the text is
    // decoded as a whole.
    [[nodiscard]] bool IsDecoded() const { return decoded_; }

    // The next row below the header; false at the end. The header once more is told and passed
    // over.
    bool Next(CsvRow& row);
    [[nodiscard]] Origin OriginOf(const CsvRow& row) const;
    // Takes the headers for examples of letters, after the names, which tell more.
    void ShowHeader();

 private:
    [[nodiscard]] CsvRows Rows() const;
    void TakeHeader(const CsvRow& row);
    void Look();
    bool SkipsHeader(const CsvRow& row);

    Book& book_;
    std::uint32_t file_;
    Charset& charset_;
    std::string_view text_;
    bool decoded_;
    CsvForm form_;
    CsvRows rows_;
    std::vector<std::string_view> header_bytes_;
    std::vector<std::string_view> header_;
    PieceCharset header_piece_ = PieceCharset::Utf8;
    CsvTop top_;
};

}  // namespace orvik::book
