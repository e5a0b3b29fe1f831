// Walks over the columns of a comma-separated text.

#pragma once

#include <cstddef>
#include <string_view>

#include "app/byte_finder.h"
#include "formats/unread_entries.h"

namespace orvik {

class Columns {
 public:
    // Begins at start, counted from 0. text must outlive the walk.
    explicit Columns(std::string_view text, std::size_t start = 0)
        : text_(text), bytes_(text, start), p_(start) {}

    [[nodiscard]] bool AtEnd() const { return p_ >= text_.size(); }
    // Where the next column begins, counted from 0.
    [[nodiscard]] std::size_t Position() const { return p_; }
    // How many CR and LF were passed over inside of columns.
    [[nodiscard]] std::size_t LineEndsInside() const { return line_ends_; }

    // What a column ends at: a comma, CR LF, or the end of the text.
    enum class End { Comma, Line, Text };

    // Takes the next column, and goes behind its end. Where the line may not end CR LF is a part of
    // the column.
    End Take(std::string_view& column, bool line_may_end) {
        std::size_t found = bytes_.Next();
        while (found != std::string_view::npos && text_[found] != ',' &&
               !(line_may_end && IsLineEnd(found))) {
            ++line_ends_;
            found = bytes_.Next();
        }
        column = text_.substr(p_, found - p_);
        if (found == std::string_view::npos) {
            p_ = text_.size();
            return End::Text;
        }
        p_ = found + 1;
        if (text_[found] == ',') {
            return End::Comma;
        }
        p_ = bytes_.Next() + 1;
        return End::Line;
    }

 private:
    [[nodiscard]] bool IsLineEnd(std::size_t place) const {
        return text_[place] == '\r' && text_.substr(place + 1, 1) == "\n";
    }

    std::string_view text_;
    ByteFinder<',', '\r', '\n'> bytes_;
    std::size_t p_;
    std::size_t line_ends_ = 0;
};

// Which columns of a line are which, counted from 0.
struct ColumnLayout {
    int Nickname;
    int Address;
    // So many commas a line has at least; it may end behind them.
    int Commas;
    // Of these the text must not end with one.
    int Passed;
};

inline constexpr ColumnLayout kCsv{.Nickname = 0, .Address = 1, .Commas = 15, .Passed = 15};
// Column 0 says what kind of entry it is.
inline constexpr ColumnLayout kWordPerfect{.Nickname = 1, .Address = 5, .Commas = 6, .Passed = 5};

struct ColumnLine {
    std::string_view Nickname;
    std::string_view Address;
    bool IsEnded = false;        // by CR LF, and not by the text
    bool HoldsLineEnds = false;  // CR or LF before the end of the address
};

// Returns false if the text ends inside a column. One loop for all columns, so that the walk is
// compiled into it, and a copy of the walk, so that it stands in registers.
template <ColumnLayout kLayout>
bool TakeLine(Columns& walk, ColumnLine& line, UnreadEntries& left_out) {
    Columns columns = walk;
    const std::size_t line_ends = columns.LineEndsInside();
    std::string_view column;
    for (int i = 0;; ++i) {
        const Columns::End end = columns.Take(column, i >= kLayout.Commas);
        if (i < kLayout.Commas &&
            (end != Columns::End::Comma || (i < kLayout.Passed && columns.AtEnd()))) {
            return false;
        }
        if (i == kLayout.Nickname) {
            line.Nickname = column;
            left_out.Nickname(column);
        } else if (i == kLayout.Address) {
            line.Address = column;
            line.HoldsLineEnds = columns.LineEndsInside() > line_ends;
            left_out.Address(column);
        } else if (i > kLayout.Nickname) {
            left_out.Other(column);
        }
        if (end != Columns::End::Comma) {
            line.IsEnded = end == Columns::End::Line;
            walk = columns;
            return true;
        }
    }
}

}  // namespace orvik
