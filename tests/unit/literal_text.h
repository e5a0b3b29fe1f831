// A text as the slow, literal twins of the fast functions read it: piece by piece, by position.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvik::test {

class LiteralText {
 public:
    explicit LiteralText(std::string_view text) : text_(text) {}

    // The length characters from position, counted from 1; fewer where the text ends before that.
    [[nodiscard]] std::string_view operator()(std::size_t position, std::size_t length = 1) const {
        return position <= text_.size() ? text_.substr(position - 1, length) : std::string_view();
    }
    [[nodiscard]] std::size_t size() const { return text_.size(); }

 private:
    std::string_view text_;
};

// A Native text as its readers see it: one without the middle line gets it at its end.
[[nodiscard]] inline std::string WithSeparator(std::string text) {
    if (text.find("-nick-") == std::string::npos) {
        text += text.empty() ? "-nick-\r\n" : "\r\n-nick-\r\n";
    }
    return text;
}

}  // namespace orvik::test
