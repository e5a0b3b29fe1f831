// A text that is held once. Copies share the bytes, which never change: to change a text is to make
// another one. So the working text, what the text box keeps of it, the rows of the lists and every
// step of undo stand in memory once.

#pragma once

#include <atomic>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvik {

class SharedText {
 public:
    SharedText() = default;
    // NOLINTBEGIN(google-explicit-constructor,hicpp-explicit-conversions): a text is a text
    SharedText(std::string text)
        : held_(text.empty() ? nullptr : std::make_shared<const Held>(std::move(text))) {}
    SharedText(std::string_view text) : SharedText(std::string(text)) {}
    SharedText(const char* text) : SharedText(std::string(text)) {}
    operator std::string_view() const { return View(); }
    // NOLINTEND(google-explicit-constructor,hicpp-explicit-conversions)

    // The bytes, which stand as long as this text or a copy of it does.
    [[nodiscard]] std::string_view View() const {
        return held_ ? std::string_view(held_->Bytes) : std::string_view{};
    }
    [[nodiscard]] std::size_t size() const { return View().size(); }
    [[nodiscard]] bool empty() const { return !held_; }
    void clear() { held_.reset(); }
    // Texts of one revision are copies of one another; the empty text has 0. Equal texts that were
    // made apart have different ones, and no number comes twice in one run of the program.
    [[nodiscard]] std::uint64_t Revision() const { return held_ ? held_->Number : 0; }
    // The revision of another text.
    static std::uint64_t NextNumber() {
        static std::atomic<std::uint64_t> last{0};
        return ++last;
    }

    friend bool operator==(const SharedText& one, const SharedText& other) {
        return one.held_ == other.held_ || one.View() == other.View();
    }
    template <std::convertible_to<std::string_view> Text>
    requires(!std::same_as<Text, SharedText>) friend bool operator==(const SharedText& one,
                                                                     const Text& other) {
        return one.View() == std::string_view(other);
    }

 private:
    struct Held {
        explicit Held(std::string&& bytes) : Bytes(std::move(bytes)), Number(NextNumber()) {}
        std::string Bytes;
        std::uint64_t Number;
    };

    std::shared_ptr<const Held> held_;
};

// A part of a text, which it keeps.
class TextPart {
 public:
    TextPart() = default;
    // length bytes of whole, from start, counted from 0.
    TextPart(SharedText whole, std::size_t start, std::size_t length)
        : whole_(std::move(whole)), part_(whole_.View().substr(start, length)) {}

    // NOLINTNEXTLINE(google-explicit-constructor,hicpp-explicit-conversions): a part is a text
    operator std::string_view() const { return part_; }

    friend bool operator==(const TextPart& one, std::string_view other) {
        return one.part_ == other;
    }

 private:
    SharedText whole_;
    std::string_view part_;
};

}  // namespace orvik
