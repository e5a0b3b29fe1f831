#include "book/csv_row_writer.h"

#include <algorithm>

namespace orvik::book {
namespace {

// Other separators too: a reader has to find out which one it is.
constexpr std::string_view kQuoted = "\",;|\t\r\n";

bool NeedsQuotes(std::string_view value) {
    return value.front() == ' ' || value.back() == ' ' ||
           value.find_first_of(kQuoted) != std::string_view::npos;
}

}  // namespace

void AppendCsvCell(std::string_view value, std::string& to) {
    if (value.empty() || !NeedsQuotes(value)) {
        to.append(value);
        return;
    }
    to += '"';
    for (;;) {
        const std::size_t quote = value.find('"');
        to.append(value.substr(0, quote));
        if (quote == std::string_view::npos) {
            break;
        }
        to += "\"\"";
        value.remove_prefix(quote + 1);
    }
    to += '"';
}

void CsvRowWriter::AppendLines(std::string_view text, std::size_t column) {
    std::string& cell = cells_[column];
    while (!text.empty()) {
        const std::size_t line = std::min(text.find_first_of("\r\n"), text.size());
        cell.append(text.substr(0, line));
        text.remove_prefix(line);
        if (!text.empty()) {
            cell.append(line_break_);
            text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
        }
    }
}

bool CsvRowWriter::End() {
    const bool empty =
        std::all_of(cells_.begin(), cells_.end(), [](const auto& cell) { return cell.empty(); });
    if (empty) {
        return false;
    }
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        if (i > 0) {
            text_ += ',';
        }
        AppendCsvCell(cells_[i], text_);
        cells_[i].clear();
    }
    text_ += line_end_;
    return true;
}

}  // namespace orvik::book
