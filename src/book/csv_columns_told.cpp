// What is told of the columns of a table.

#include <algorithm>

#include "book/csv_columns.h"
#include "book/csv_words.h"

namespace orvik::book {
namespace {

// A long header is told by its beginning.
std::string Told(const CsvColumn& column, std::size_t number) {
    return column.Header.empty() ? ColumnName(number) : "\"" + std::string(column.Header) + "\"";
}

std::string_view HowOf(const CsvColumns& columns) {
    const auto is_of = [&](CsvGround ground) {
        return std::any_of(columns.All.begin(), columns.All.end(), [ground](const auto& one) {
            return one.Used && one.Ground == ground;
        });
    };
    return !columns.Program.empty()  ? "by header"
           : is_of(CsvGround::Words) ? "by common words"
           : is_of(CsvGround::Tag)   ? "by tags"
           : is_of(CsvGround::Place) ? "by position, unproven"
           : is_of(CsvGround::Cells) ? "by their cells"
           : is_of(CsvGround::Asked) ? "as asked"
                                     : "by nothing";
}

}  // namespace

std::string SentenceOf(const CsvColumns& columns) {
    std::string text = "columns matched " + std::string(HowOf(columns));
    if (!columns.Language.empty()) {
        text += ", " + std::string(LanguageName(columns.Language));
    }
    std::string_view between = ": ";
    for (std::size_t i = 0; i < columns.All.size(); ++i) {
        const CsvColumn& one = columns.All[i];
        if (!one.Used || one.Field->Meaning == CsvMeaning::Kind) {
            continue;
        }
        text += between;
        text += Told(one, i) + " -> " + std::string(ShownName(*one.Field));
        const bool date = one.Field->Meaning == CsvMeaning::Date && !one.Order.Certain;
        if (date) {
            const bool month = one.Order.Order == DateOrder::MonthFirst;
            text += month ? " (taken for month/day/year)" : " (taken for day/month/year)";
        }
        const bool other_way = one.Ground == CsvGround::Cells || one.Ground == CsvGround::Asked ||
                               (one.Ground == CsvGround::Words && !columns.Program.empty());
        if (other_way && HowOf(columns) != "by their cells" && HowOf(columns) != "as asked") {
            text += one.Unsure                       ? " (by its cells, doubtful)"
                    : one.Ground == CsvGround::Cells ? " (by its cells)"
                    : one.Ground == CsvGround::Words ? " (a common word)"
                                                     : " (as asked)";
        } else if (one.Unsure) {
            text += " (doubtful)";
        }
        between = ", ";
    }
    return text;
}

std::string ColumnName(std::size_t column) {
    return "column " + std::to_string(column + 1);
}

}  // namespace orvik::book
