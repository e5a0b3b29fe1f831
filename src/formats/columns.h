// Walks over the columns of a comma-separated text.

#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "app/byte_finder.h"
#include "app/text.h"

namespace orvik {

// A column ends at a comma; where the text has none left, or where a comma that is passed over is
// its last character, the walk fails.
class Columns {
 public:
    // Begins behind the first line.
    explicit Columns(std::string_view text)
        : text_(text), commas_(text, ','), p_(FindFrom(text, "\n", 1) + 1) {}

    [[nodiscard]] bool AtEnd() const { return p_ > text_.size(); }

    // Takes what stands before the next comma, and goes to that comma.
    bool Take(std::string_view& column) {
        const std::size_t start = p_;
        const std::size_t found = commas_.Next(start - 1);
        p_ = found == std::string_view::npos ? text_.size() + 1 : found + 1;
        column = start < p_ ? Mid(text_, start, p_ - start) : std::string_view{};
        return p_ <= text_.size();
    }

    // Takes what stands before the next comma, and goes behind that comma.
    bool TakeAndPass(std::string_view& column) {
        if (!Take(column) || p_ == text_.size()) {
            return false;
        }
        ++p_;
        return true;
    }

    // Gives the columns that are left of the line to take, and goes to the next line.
    template <class TakeColumn>
    void EndLine(TakeColumn&& take) {
        std::size_t start = p_ - 1;
        p_ = FindFrom(text_, kCrLf, p_);
        const std::size_t end = p_ - 1;
        while (start < end) {
            const std::size_t comma = std::min(commas_.Next(start), end);
            take(text_.substr(start, comma - start));
            start = comma + 1;
        }
        p_ += kCrLf.size();
    }

 private:
    std::string_view text_;
    ByteFinder commas_;
    std::size_t p_;
};

}  // namespace orvik
