#include "book/csv_rows.h"

#include <algorithm>
#include <string>

namespace orvik::book {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}

std::string WithSingleQuotes(std::string_view text) {
    std::string single;
    single.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        single += text[i];
        i += text[i] == '"' && text.substr(i + 1, 1) == "\"" ? 1U : 0U;
    }
    return single;
}

}  // namespace

CsvRows::CsvRows(std::string_view text, char separator, Arena& texts, std::uint32_t first_line)
    : text_(text), separator_(separator), texts_(texts), line_(first_line) {}

bool CsvRows::EndsCellAt(std::size_t at) const {
    return at >= text_.size() || text_[at] == separator_ || IsLineEnd(text_[at]);
}

bool CsvRows::BeginsCellAt(std::size_t at) const {
    return at == 0 || text_[at - 1] == separator_ || IsLineEnd(text_[at - 1]);
}

// CR CR LF, which a second conversion makes of CR LF, is one end.
std::size_t CsvRows::LengthOfEndAt(std::size_t at) const {
    const std::string_view end = text_.substr(at, 3);
    return end.front() == '\n' ? 1 : end == "\r\r\n" ? 3 : end.starts_with("\r\n") ? 2 : 1;
}

void CsvRows::Doubt(CsvRow& row, Reason reason, std::string_view cell) const {
    if (row.Doubt == Reason::None) {
        row.Doubt = reason;
        row.DoubtAt = cell;
    }
}

bool CsvRows::Next(CsvRow& row) {
    while (at_ < text_.size() && IsLineEnd(text_[at_])) {
        at_ += LengthOfEndAt(at_);
        ++line_;
    }
    row.Cells.clear();
    row.Doubt = Reason::None;
    row.DoubtAt = {};
    row.Number = line_;
    if (at_ >= text_.size()) {
        return false;
    }
    const std::size_t from = at_;
    TakeRow(row);
    row.Last = line_;
    if (at_ < text_.size()) {
        at_ += LengthOfEndAt(at_);
        ++line_;
    }
    row.Span = text_.substr(from, at_ - from);
    columns_ = columns_ == 0 ? row.Cells.size() : columns_;
    return true;
}

void CsvRows::TakeRow(CsvRow& row) {
    for (;;) {
        row.Cells.push_back(TakeCell(row));
        if (at_ >= text_.size() || text_[at_] != separator_) {
            return;
        }
        ++at_;
    }
}

std::string_view CsvRows::TakeCell(CsvRow& row) {
    if (const auto quoted = TakeQuoted(row)) {
        return *quoted;
    }
    const std::size_t from = at_;
    while (!EndsCellAt(at_)) {
        ++at_;
    }
    return text_.substr(from, at_ - from);
}

// Some write a blank behind the separator.
std::optional<std::string_view> CsvRows::TakeQuoted(CsvRow& row) {
    std::size_t open = at_;
    while (open < text_.size() && text_[open] == ' ' && separator_ != ' ') {
        ++open;
    }
    if (open >= text_.size() || text_[open] != '"') {
        return std::nullopt;
    }
    const Quoted found = FindClose(open + 1);
    if (found.End == kNone) {
        // Once a row, as it may be long.
        if (row.Doubt == Reason::None) {
            const std::size_t end = std::min(text_.find_first_of("\r\n", open), text_.size());
            Doubt(row, Reason::NotClosed, text_.substr(open, end - open));
        }
        return std::nullopt;
    }
    const std::string_view inside = text_.substr(open + 1, found.End - open - 1);
    at_ = found.End + 1;
    LookForLostQuote(inside, row);
    const bool doubled = inside.find('"') != kNone;
    const std::string_view cell = doubled ? texts_.Keep(WithSingleQuotes(inside)) : inside;
    if (found.Odd) {
        Doubt(row, Reason::OddQuote, cell);
    }
    return cell;
}

// The first quotes of an odd number that end a cell. Others are letters, but for one that begins a
// cell: there the quote before it has lost its end.
CsvRows::Quoted CsvRows::FindClose(std::size_t from) {
    std::size_t at = from;
    Quoted found{kNone};
    bool own = true;  // the quotes right behind the one that opens the cell
    while ((at = text_.find('"', at)) != kNone) {
        if (!own && at >= known_from_ && at < known_to_) {
            found.End = known_.End;
            found.Odd = found.Odd || known_.Odd;
            return found;
        }
        own = own && at == from;
        const std::size_t behind = std::min(text_.find_first_not_of('"', at), text_.size());
        const bool odd = (behind - at) % 2 == 1;
        if (odd && EndsCellAt(behind)) {
            found.End = behind - 1;
            if (own) {
                return found;
            }
            break;
        }
        if (odd && !own && BeginsCellAt(at)) {
            break;
        }
        found.Odd = found.Odd || odd;
        own = false;
        at = behind;
    }
    known_from_ = from;
    known_to_ = std::min(at, text_.size());
    known_ = found;
    return found;
}

// A cell of many lines that could be rows of their own may be one whose quote came too late.
void CsvRows::LookForLostQuote(std::string_view cell, CsvRow& row) {
    constexpr std::size_t kFewest = 3;
    std::size_t separators = 0;
    std::size_t rows = 0;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] == separator_) {
            ++separators;
        } else if (IsLineEnd(cell[i])) {
            // The lengths of ends are those of the whole text, where the cell stands.
            const auto place = static_cast<std::size_t>(cell.data() - text_.data()) + i;
            i += LengthOfEndAt(place) - 1;
            ++line_;
            rows += columns_ > 1 && separators + 1 == columns_ ? 1U : 0U;
            separators = 0;
        }
    }
    if (rows >= kFewest) {
        Doubt(row, Reason::ManyRows, cell);
    }
}

}  // namespace orvik::book
