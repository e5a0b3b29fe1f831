#include "book/mail/mbox.h"

#include <algorithm>
#include <array>

#include "book/address_letters.h"

namespace orvik::book {
namespace {

constexpr std::string_view kFrom = "From ";
constexpr std::string_view kBeforeFrom = "\nFrom ";
constexpr std::string_view kBeforeMmdf = "\n\1\1\1\1";
constexpr std::string_view kQuoted = ">From ";
// A marker and the line behind it are never longer than what is looked at.
constexpr std::size_t kLongestLookedAt = 8192;

template <std::size_t count>
bool IsOneOf(std::string_view word, const std::array<std::string_view, count>& words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

std::string_view NextWord(std::string_view& rest) {
    const std::size_t begin = std::min(rest.find_first_not_of(" \t"), rest.size());
    rest.remove_prefix(begin);
    const std::string_view word = rest.substr(0, rest.find_first_of(" \t"));
    rest.remove_prefix(word.size());
    return word;
}

bool IsTime(std::string_view word) {
    return word.size() >= 4 && IsDigit(word[0]) && word.find(':') <= 2 && IsDigit(word.back());
}

bool IsYear(std::string_view word) {
    return word.size() == 4 && (word.starts_with("19") || word.starts_with("20")) &&
           IsDigit(word[2]) && IsDigit(word[3]);
}

// As asctime writes it, "Thu Jan  1 10:00:00 1998"; a zone may stand beside the year.
bool HasDate(std::string_view line) {
    constexpr std::array<std::string_view, 7> kDays = {
        "Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
    constexpr std::array<std::string_view, 12> kMonths = {
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    while (!line.empty()) {
        std::string_view rest = line;
        const std::string_view word = NextWord(rest);
        line = rest;
        if (!IsOneOf(word.substr(0, word.find(',')), kDays) || !IsOneOf(NextWord(rest), kMonths)) {
            continue;
        }
        const std::string_view day = NextWord(rest);
        bool time = false;
        while (!day.empty() && IsDigit(day.front()) && !rest.empty()) {
            const std::string_view next = NextWord(rest);
            if (time && IsYear(next)) {
                return true;
            }
            time = time || IsTime(next);
        }
    }
    return false;
}

// Some programs know neither sender nor date, and leave no empty line before.
bool IsBare(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t last = line.find_last_not_of(kBlanks);
    line = line.substr(0, last + 1);
    return line == "From" || line == "From -";
}

// With its end.
std::string_view FirstLine(std::string_view text) {
    return text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
}

bool IsEmptyLine(std::string_view line) {
    return line.empty() || line == "\r";
}

}  // namespace

bool IsMailHeader(std::string_view line) {
    constexpr std::size_t kLongestName = 76;
    std::size_t at = 0;
    while (at < line.size() && line[at] > ' ' && line[at] != ':' && line[at] < 0x7F) {
        ++at;
    }
    const std::size_t name = at;
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) {
        ++at;
    }
    return name > 0 && name <= kLongestName && at < line.size() && line[at] == ':';
}

bool IsMarker(bool behind_empty, std::string_view line, std::string_view next) {
    if (!line.starts_with(kFrom)) {
        return false;
    }
    // Other programs quoted the marker of a message that they took from a folder.
    if (next.starts_with(kQuoted)) {
        return HasDate(line);
    }
    if (IsMailHeader(next)) {
        return behind_empty || IsBare(line) || HasDate(line);
    }
    return behind_empty && IsEmptyLine(next) && HasDate(line);
}

bool MboxReader::Fill() {
    if (at_end_) {
        return false;
    }
    if (at_ > 0) {
        buffer_.erase(0, at_);
        at_ = 0;
    }
    at_end_ = !next_(buffer_);
    return !at_end_;
}

std::string_view MboxReader::LineAt(std::size_t at) const {
    const std::string_view rest = std::string_view(buffer_).substr(at, kLongestLookedAt);
    std::string_view line = rest.substr(0, rest.find('\n'));
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

// Whether so many lines stand there whole, reading on where they do not. Places count from at_,
// which moves.
bool MboxReader::HasLines(std::size_t at, std::size_t count) {
    std::size_t from = at;
    while (count > 0) {
        const std::size_t end = buffer_.find('\n', at_ + from);
        const bool whole = end != std::string::npos;
        if (!whole && buffer_.size() - at_ - from < kLongestLookedAt) {
            if (!Fill()) {
                return false;
            }
            continue;
        }
        from = whole ? end - at_ + 1 : from + kLongestLookedAt;
        --count;
    }
    return true;
}

bool MboxReader::Parts(std::size_t place) {
    HasLines(place, 2);
    const std::size_t line = at_ + place;
    if (is_mmdf_) {
        return LineAt(line) == kMmdfLine;
    }
    const std::size_t behind = std::min(buffer_.find('\n', line), buffer_.size() - 1) + 1;
    const std::string_view before = std::string_view(buffer_).substr(at_, place);
    const bool behind_empty = before == "\n" || before == "\r\n" || before.ends_with("\n\n") ||
                              before.ends_with("\n\r\n");
    return IsMarker(behind_empty, LineAt(line), LineAt(behind));
}

// Where the message that begins at at_ ends, counted from there.
std::size_t MboxReader::FindEnd() {
    std::size_t from = 0;
    for (;;) {
        const std::size_t found = buffer_.find(is_mmdf_ ? kBeforeMmdf : kBeforeFrom, at_ + from);
        if (found == std::string::npos) {
            const std::size_t held = buffer_.size() - at_;
            // What may be the beginning of a marker is looked at again.
            from = std::max(from, held - std::min(held, kFrom.size()));
            if (held >= longest_) {
                const std::size_t end = buffer_.rfind('\n', at_ + longest_);
                is_rest_ = true;
                return end == std::string::npos || end <= at_ ? longest_ : end + 1 - at_;
            }
            if (!Fill()) {
                return buffer_.size() - at_;
            }
            continue;
        }
        const std::size_t place = found + 1 - at_;
        if (Parts(place)) {
            return place;
        }
        from = place;
    }
}

bool MboxReader::Next(MboxMessage& message) {
    HasLines(0, 1);
    if (at_ == buffer_.size()) {
        return false;
    }
    is_mmdf_ = is_mmdf_ || (line_ == 1 && LineAt(at_) == kMmdfLine);
    message = {};
    message.Line = line_;
    message.IsRest = is_rest_;
    is_rest_ = false;
    std::size_t end = FindEnd();
    std::string_view whole = std::string_view(buffer_).substr(at_, end);
    line_ += static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '\n'));
    at_ += end;
    if (is_mmdf_ && !message.IsRest) {
        whole.remove_prefix(FirstLine(whole).size());
    }
    if (!message.IsRest && whole.starts_with(kFrom)) {
        message.Marker = FirstLine(whole);
        while (message.Marker.ends_with('\n') || message.Marker.ends_with('\r')) {
            message.Marker.remove_suffix(1);
        }
        whole.remove_prefix(FirstLine(whole).size());
    }
    message.Text = whole;
    return true;
}

}  // namespace orvik::book
