// Walks over the columns of a comma-separated text.

#pragma once

#include <cstddef>
#include <string_view>

#include "app/text.h"

namespace orvik {

// A column ends at a comma; where the text has none left, or where a comma that is passed over is
// its last character, the walk fails.
class Columns {
 public:
    // Begins behind the first line.
    explicit Columns(std::string_view text) : text_(text), p_(FindFrom(text, "\n", 1) + 1) {}

    [[nodiscard]] bool AtEnd() const { return p_ > text_.size(); }

    // Takes what stands before the next comma, and goes to that comma.
    bool Take(std::string_view& column) {
        const std::size_t start = p_;
        const std::size_t found = FindNear(text_, ',', start - 1);
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

    // Takes the rest of the line, and goes to the next one.
    std::string_view EndLine() {
        const std::string_view rest = TakeUntil(text_, p_, kCrLf);
        p_ += kCrLf.size();
        return rest;
    }

 private:
    std::string_view text_;
    std::size_t p_;
};

}  // namespace orvik
