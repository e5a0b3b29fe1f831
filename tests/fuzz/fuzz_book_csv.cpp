// Reads any bytes as CSV, and takes them to each format and back.

#include <cstdint>
#include <string>
#include <string_view>

#include "book/arena.h"
#include "book/csv_rows.h"
#include "fuzz/book_trip.h"
#include "fuzz/fuzz_target.h"

namespace {

// No byte is passed over but ends of empty lines.
void CheckRows(std::string_view text, char separator) {
    orvik::book::Arena texts;
    orvik::book::CsvRows rows(text, separator, texts);
    const char* behind = text.data();
    for (orvik::book::CsvRow row; rows.Next(row);) {
        const std::string_view between(behind, static_cast<std::size_t>(row.Span.data() - behind));
        orvik::fuzz::Check(between.find_first_not_of("\r\n") == std::string_view::npos,
                           "rows stand side by side");
        orvik::fuzz::Check(!row.Cells.empty() && row.Number <= row.Last,
                           "a row has cells and lines");
        behind = row.Span.data() + row.Span.size();
    }
    orvik::fuzz::Check(
        text.substr(static_cast<std::size_t>(behind - text.data())).find_first_not_of("\r\n") ==
            std::string_view::npos,
        "nothing is left");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = orvik::fuzz::TextOf(data, size);
    CheckRows(text, ',');
    CheckRows(text, '\t');
    orvik::fuzz::CheckTrips(orvik::fuzz::ReadTable, text);
    return 0;
}
