#include "book/read_csv.h"

#include <string_view>

#include "book/csv_contact.h"
#include "book/csv_sheet.h"
#include "book/csv_words.h"

namespace orvik::book {

std::vector<std::string> NotThere(const CsvColumns& columns, std::span<const CsvMapping> asked) {
    std::vector<std::string> missing;
    for (const CsvMapping& one : asked) {
        const std::string key = KeyOf(one.Header).Text;
        bool there = false;
        for (std::size_t i = 0; i < columns.All.size() && !there; ++i) {
            const std::string_view header = columns.All[i].Header;
            there = header.empty() ? ColumnName(i) == one.Header
                                   : header == one.Header || KeyOf(header).Text == key;
        }
        if (!there) {
            missing.push_back(one.Header);
        }
    }
    return missing;
}

CsvFound ReadCsv(Book& book,
                 std::uint32_t file,
                 Charset& charset,
                 std::span<const CsvMapping> asked) {
    CsvSheet table(book, file, charset);
    CsvColumns columns = MatchColumns(table.Top(), asked);
    CsvContacts contacts(book, charset, file, columns, table.IsDecoded());
    for (CsvRow row; table.Next(row);) {
        contacts.Add(row, table.OriginOf(row));
    }
    table.ShowHeader();
    return {std::string(columns.Program), SentenceOf(columns), NotThere(columns, asked)};
}

}  // namespace orvik::book
