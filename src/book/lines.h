// The lines of a text. A line ends with LF, CR LF or CR, as every program had it; CR CR LF, which a
// second conversion makes of CR LF, is one end, too.

#pragma once

#include <cstddef>
#include <cstdint>
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
    // Gives the line that came last once more.
    void Back(const Line& line) {
        rest_ = {line.Text.data(), static_cast<std::size_t>(End() - line.Text.data())};
        number_ = line.Number - 1;
    }
    // What has not been given yet.
    [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
    [[nodiscard]] const char* End() const { return rest_.data() + rest_.size(); }
    [[nodiscard]] std::size_t EndOfLine() const;

    std::string_view rest_;
    std::uint32_t number_ = 0;
    bool has_cr_;
};

}  // namespace orvik::book
