// The lines of a text. A line ends with LF, CR LF or CR, as every program had it; CR CR LF, which a
// second conversion makes of CR LF, is one end, too.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>

namespace orvik::book {

struct Line {
    std::string_view Text;     // without its end
    std::uint32_t Number = 0;  // from 1
    std::string_view WithEnd;  // the last line of a text may have no end
};

// A line of a record, as little of it as is needed: a record may have millions.
struct TextRow {
    std::string_view Text;
    std::uint32_t Number = 0;
    std::uint32_t Colon = kNoColon;  // where the first one is

    static constexpr std::uint32_t kNoColon = ~std::uint32_t{0};
};

// The rows of a record. Lines that are no fields, one behind the other, are one row: a text that
// went on without being folded.
class TextRows {
 public:
    // folded says that the text is not the line as it stands in its file.
    void Add(std::string_view text, std::uint32_t number, bool folded);
    void Clear();
    [[nodiscard]] const std::deque<TextRow>& All() const { return rows_; }
    [[nodiscard]] std::deque<TextRow>& All() { return rows_; }

 private:
    std::deque<TextRow> rows_;
    bool ends_with_text_ = false;
};

struct LineEnds {
    std::size_t Lf = 0;
    std::size_t CrLf = 0;
    std::size_t Cr = 0;
};

// How often a text has each line end.
[[nodiscard]] LineEnds CountLineEnds(std::string_view text);

// "LF", "CR LF" or "CR", the one that is there most; "no line end".
[[nodiscard]] std::string_view NameOf(const LineEnds& ends);

class Lines {
 public:
    explicit Lines(std::string_view text);

    // The next line; false at the end of the text.
    bool Next(Line& line);
    // The text behind the lines that were read.
    [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
    [[nodiscard]] std::size_t EndOfLine() const {
        return has_cr_ ? EndBesideCr() : std::min(rest_.find('\n'), rest_.size());
    }
    [[nodiscard]] std::size_t EndBesideCr() const;

    std::string_view rest_;
    std::uint32_t number_ = 0;
    bool has_cr_;
};

// Here, as each line of a book comes by.
inline bool Lines::Next(Line& line) {
    if (rest_.empty()) {
        return false;
    }
    const std::size_t length = EndOfLine();
    std::size_t whole = length;
    if (whole < rest_.size()) {
        const std::string_view end = rest_.substr(whole, 3);
        whole += end == "\r\r\n" ? 3 : end.starts_with("\r\n") ? 2 : 1;
    }
    line = {rest_.substr(0, length), ++number_, rest_.substr(0, whole)};
    rest_.remove_prefix(whole);
    return true;
}

}  // namespace orvik::book
