// The lines of a text. A line ends with LF, CR LF or CR, as every program had it; CR CR LF, which a
// second conversion makes of CR LF, is one end, too.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

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
    [[nodiscard]] const std::vector<TextRow>& All() const { return rows_; }
    [[nodiscard]] std::vector<TextRow>& All() { return rows_; }

 private:
    std::vector<TextRow> rows_;
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
    // The same where it is known whether there is a CR in the text.
    Lines(std::string_view text, bool has_cr) : rest_(text), has_cr_(has_cr) {}

    // The next line; false at the end of the text.
    bool Next(Line& line);
    // The text behind the lines that were read.
    [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
    [[nodiscard]] std::size_t EndOfLine() const {
        return has_cr_ ? EndBesideCr() : std::min(rest_.find('\n'), rest_.size());
    }
    [[nodiscard]] std::size_t EndBesideCr() const;
    [[nodiscard]] static std::size_t LengthOfEnd(std::string_view end) {
        return end.front() == '\n' ? 1 : end == "\r\r\n" ? 3 : end.starts_with("\r\n") ? 2 : 1;
    }

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
        whole += LengthOfEnd(rest_.substr(whole, 3));
    }
    line.Text = rest_.substr(0, length);
    line.Number = ++number_;
    line.WithEnd = rest_.substr(0, whole);
    rest_.remove_prefix(whole);
    return true;
}

}  // namespace orvik::book
