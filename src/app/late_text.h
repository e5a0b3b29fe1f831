// A text that is made when somebody reads it: a book that is many times as large as what it is made
// of, and that most often goes to a file and nowhere else.

#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "app/shared_text.h"

namespace orvik {

// Is given a text piece by piece.
using TakePiece = std::function<void(std::string_view piece)>;

// Copies are the same text, which is made once at most.
class LateText {
 public:
    // Gives a text, the same each time, that is not empty.
    using Maker = std::function<void(const TakePiece& take)>;

    LateText() = default;
    explicit LateText(Maker maker)
        : state_(std::make_shared<State>(State{SharedText::NextNumber(), {}, std::move(maker)})) {}
    // A text is a text, and this one converts to no SharedText.
    // NOLINTBEGIN(google-explicit-constructor,hicpp-explicit-conversions)
    template <std::convertible_to<SharedText> Text>
    // NOLINTNEXTLINE(bugprone-forwarding-reference-overload)
    LateText(Text&& text) {
        SharedText made(std::forward<Text>(text));
        if (!made.empty()) {
            state_ = std::make_shared<State>(State{made.Revision(), made, {}});
        }
    }
    operator std::string_view() const { return View(); }
    // NOLINTEND(google-explicit-constructor,hicpp-explicit-conversions)

    // The bytes, which stand as long as this text or a copy of it does.
    [[nodiscard]] std::string_view View() const {
        if (!state_) {
            return {};
        }
        if (state_->Made.empty()) {
            // Made twice, it needs no more memory than it is long.
            std::size_t length = 0;
            state_->Make([&length](std::string_view piece) { length += piece.size(); });
            std::string made;
            made.reserve(length);
            state_->Make([&made](std::string_view piece) { made.append(piece); });
            state_->Made = std::move(made);
        }
        return state_->Made;
    }
    // Gives the bytes without keeping them.
    void Give(const TakePiece& take) const {
        if (state_ && state_->Made.empty()) {
            state_->Make(take);
        } else {
            take(View());
        }
    }

    [[nodiscard]] bool empty() const { return !state_; }
    void clear() { state_.reset(); }
    // As that of a SharedText.
    [[nodiscard]] std::uint64_t Revision() const { return state_ ? state_->Number : 0; }

    template <std::convertible_to<std::string_view> Text>
    friend bool operator==(const LateText& one, const Text& other) {
        return one.View() == std::string_view(other);
    }

 private:
    struct State {
        std::uint64_t Number;
        SharedText Made;
        Maker Make;
    };

    std::shared_ptr<State> state_;
};

}  // namespace orvik
