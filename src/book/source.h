// A file's bytes, kept once, and its text: the bytes themselves, or UTF-8 where the bytes are
// UTF-16 or UTF-32 and have no lines of their own.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvik::book {

// Positions are kept in 32 bits.
inline constexpr std::size_t kLongestSource = 0xFFFFFFFEU;

// How text is stored in 16 or 32 bits a letter, if it is.
enum class WideForm : std::uint8_t { None, Utf16Le, Utf16Be, Utf32Le, Utf32Be };

// Which bytes there are somewhere in a text; without them much need not be looked for.
struct SignsOfText {
    bool Nul = false;
    bool Cr = false;
    bool Escape = false;
    bool NotAscii = false;
    bool EndOfText = false;  // the sign that ends a text of DOS
};

class Source {
 public:
    // The name is what the user called the file, "-" for standard input.
    Source(std::string name, std::string bytes);

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] std::string_view Bytes() const { return bytes_; }
    // What readers read, valid UTF-8 if the source is wide. Byte order marks are no part of it, nor
    // are the signs that end a text of DOS, also where files were joined.
    [[nodiscard]] std::string_view Text() const { return text_; }
    // Where a piece of the text stands, in bytes of the text.
    [[nodiscard]] std::uint32_t OffsetOf(const char* place) const {
        return static_cast<std::uint32_t>(place - text_.data());
    }

    [[nodiscard]] WideForm Wide() const { return wide_; }
    [[nodiscard]] bool HasMark() const { return has_mark_; }
    // What there is in the text.
    [[nodiscard]] const SignsOfText& Signs() const { return signs_; }
    // Bytes that are no letter of a wide text; each became U+FFFD.
    [[nodiscard]] std::size_t BadLetters() const { return bad_letters_; }
    // Whether a piece of the text holds one of them.
    [[nodiscard]] bool IsBroken(std::string_view piece) const {
        return bad_letters_ > 0 && piece.find("\xEF\xBF\xBD") != std::string_view::npos;
    }

    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    Source(Source&&) = delete;
    Source& operator=(Source&&) = delete;
    ~Source() = default;

 private:
    std::string name_;
    std::string bytes_;
    std::string decoded_;
    std::string_view text_;
    WideForm wide_ = WideForm::None;
    bool has_mark_ = false;
    SignsOfText signs_;
    std::size_t bad_letters_ = 0;
};

// FileNameOf: a name without its folders.
//   "/a/b.ldif" -> "b.ldif"
[[nodiscard]] constexpr std::string_view FileNameOf(std::string_view name) {
    return name.substr(name.find_last_of('/') + 1);
}

// WideFormOf: by the byte order mark or, without one, by where the NULs stand in the first 4 kB.
//   "\xFF\xFE" "a\0" -> Utf16Le;  "B\0E\0G\0" -> Utf16Le;  "plain" -> None
[[nodiscard]] WideForm WideFormOf(std::string_view bytes);

[[nodiscard]] std::string_view NameOf(WideForm form);

}  // namespace orvik::book
