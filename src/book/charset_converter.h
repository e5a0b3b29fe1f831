// Text of any character set as UTF-8, by ICU.

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvik::book {

class CharsetConverter {
 public:
    // A set by any of its names; nothing for one that nobody knows, and for UTF-7 and those that
    // are no supersets of ASCII letters in any way that an address book uses.
    [[nodiscard]] static std::optional<CharsetConverter> Named(std::string_view name);

    // Appends the UTF-8 of bytes, with U+FFFD for what is no letter of the set. Returns how many.
    std::size_t Append(std::string_view bytes, std::string& text);

    // Whether its letters have 16 or 32 bits, so that no piece of a plain file is in it.
    [[nodiscard]] bool IsWide() const;

    // The name that is shown, "windows-1252".
    [[nodiscard]] const std::string& Name() const { return name_; }

    CharsetConverter(CharsetConverter&& other) noexcept;
    CharsetConverter& operator=(CharsetConverter&& other) noexcept;
    CharsetConverter(const CharsetConverter&) = delete;
    CharsetConverter& operator=(const CharsetConverter&) = delete;
    ~CharsetConverter();

 private:
    struct Open;
    explicit CharsetConverter(std::unique_ptr<Open> open, std::string name);

    std::unique_ptr<Open> open_;
    std::string name_;
};

}  // namespace orvik::book
