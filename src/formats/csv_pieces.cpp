#include "formats/csv_pieces.h"

#include <algorithm>
#include <utility>

#include "app/text.h"
#include "app/working_text.h"
#include "formats/columns.h"

namespace orvik {
namespace {

// The longest line that is looked for in what comes.
constexpr std::size_t kLongest = std::size_t{16} << 10U;

// So much more memory than what was read first asks for.
constexpr double kMargin = 1.1;

}  // namespace

bool CsvReading::Take(std::string_view piece) {
    if (is_behind_first_line_) {
        return TakeLines(piece);
    }
    rest_.append(piece);
    const std::size_t end = rest_.find('\n');
    if (end == std::string::npos) {
        return rest_.size() <= kLongest;
    }
    is_behind_first_line_ = true;
    const std::string text = std::exchange(rest_, {});
    return TakeLines(std::string_view(text).substr(end + 1));
}

bool CsvReading::TakeLines(std::string_view piece) {
    if (!rest_.empty()) {
        // The line that has begun, and no more than it may be long.
        const std::size_t begun = rest_.size();
        rest_.append(piece.substr(0, kLongest));
        const std::size_t end = Read(rest_, begun, false);
        if (end == 0) {
            return !is_unusual_ && rest_.size() <= kLongest;
        }
        piece.remove_prefix(end - begun);
    }
    rest_.assign(piece.substr(Read(piece, piece.size(), false)));
    return !is_unusual_ && rest_.size() <= kLongest;
}

std::size_t CsvReading::Read(std::string_view text, std::size_t limit, bool is_last) {
    // A line is longer than its entry.
    made_.resize(std::max(made_.size(), text.size()));
    char* to = made_.data();
    Columns columns(text);
    std::size_t start = 0;
    for (ColumnLine line; start < limit; start = columns.Position()) {
        if (!TakeLine<kCsv>(columns, line, left_out_) || !(line.IsEnded || is_last)) {
            left_out_.ForgetEntry();
            break;
        }
        left_out_.EndEntry();
        if (line.HoldsLineEnds || columns.Position() - start > kLongest) {
            is_unusual_ = true;
            break;
        }
        to = Put(Put(Put(to, "\""), line.Nickname), "\" <");
        to = Put(Put(Put(to, line.Address), ">"), kCrLf);
        entries_.AddressLengths.push_back(static_cast<std::uint32_t>(line.Address.size()));
    }
    const std::string_view made(made_.data(), static_cast<std::size_t>(to - made_.data()));
    is_unusual_ = is_unusual_ || FindText(made, kNick) != std::string_view::npos;
    if (entries_.List.empty() && start > 0) {
        Reserve(made.size(), start);
    }
    entries_.List.append(made);
    return start;
}

// A list that grows has its pages filled and copied twice.
void CsvReading::Reserve(std::size_t made, std::size_t read) {
    const double pieces = static_cast<double>(length_) / static_cast<double>(read) * kMargin;
    const auto reserved = [pieces](std::size_t count) {
        return static_cast<std::size_t>(static_cast<double>(count) * pieces);
    };
    entries_.List.reserve(reserved(made));
    entries_.AddressLengths.reserve(reserved(entries_.AddressLengths.size()));
}

std::optional<ListedEntries> CsvReading::Entries() && {
    const bool is_read = Read(rest_, rest_.size(), true) == rest_.size() && !is_unusual_;
    if (!is_read || !is_behind_first_line_ || entries_.AddressLengths.empty()) {
        return std::nullopt;
    }
    return std::move(entries_);
}

}  // namespace orvik
