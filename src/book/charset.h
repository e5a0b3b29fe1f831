// How the bytes of a book are letters: UTF-8 wherever they are valid UTF-8, and one other set for
// the rest of a file. Old books say nothing about it, so every doubt is told, with names as
// examples.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "book/arena.h"
#include "book/charset_converter.h"
#include "book/source.h"
#include "book/utf8.h"

namespace orvik::book {

// What made the choice of the set for what is not UTF-8.
enum class CharsetGround : std::uint8_t { Asked, Guessed, Assumed };

// How the letters of one piece of a file, a record or a card, are to be read.
enum class PieceCharset : std::uint8_t {
    Utf8,    // ASCII included
    Broken,  // UTF-8, but for one broken letter, which becomes U+FFFD
    Other    // the file's other set
};

// JudgeBytes: how values of which nobody has said anything are to be read, by all of them; count is
// what there is in them.
[[nodiscard]] PieceCharset JudgeBytes(std::span<const std::string_view> values, Utf8Count& count);

class Charset {
 public:
    // asked: the set that the user named, empty for none; it must be known.
    Charset(const Source& source, std::string_view asked);

    // Decides about one piece by all of its values; line is its first one.
    PieceCharset Judge(std::span<const std::string_view> values, std::uint32_t line);
    // The same for values that were written in ASCII, and are UTF-8 unless their bytes are not.
    PieceCharset JudgeApart(std::span<const std::string_view> values, std::uint32_t line);
    // A value of a piece as UTF-8, copied only if it changes. bad counts what was no letter.
    std::string_view Decode(std::string_view value,
                            PieceCharset piece,
                            Arena& texts,
                            std::size_t& bad);
    // One value that was written in ASCII.
    std::string_view DecodeAlone(std::string_view value,
                                 std::uint32_t line,
                                 Arena& texts,
                                 std::size_t& bad);
    // A value that names its set; nothing for a set that nobody knows.
    std::optional<std::string_view> DecodeAs(std::string_view value,
                                             std::string_view charset,
                                             Arena& texts,
                                             std::size_t& bad);
    // A name of which the user can see whether the set is right; raw holds its bytes.
    void Example(std::string_view raw);

    // "UTF-8", "ASCII", "UTF-16LE", "windows-1252 (assumed; e.g. "J\u00F6rg", "Zo\u00EB")",
    // "UTF-8 (410 records), windows-1252 (assumed) (2 records, lines 88, 130)"
    // for "record".
    [[nodiscard]] std::string Sentence(std::string_view record);
    // Whether some of the file was read in a set that is only assumed or guessed.
    [[nodiscard]] bool IsDoubtful() const {
        return other_pieces_ > 0 && ground_ != CharsetGround::Asked;
    }
    [[nodiscard]] const std::string& OtherName() const { return other_.Name(); }
    // Whether a piece is in a set whose bytes are no UTF-8, however they look.
    [[nodiscard]] bool IsOther(PieceCharset piece) const {
        return piece == PieceCharset::Other && other_.Name() != "UTF-8";
    }
    // The whole file is ASCII or UTF-8, so nothing needs to be judged.
    [[nodiscard]] bool IsUtf8() const { return utf8_; }

 private:
    void CountOther(std::uint32_t line);
    [[nodiscard]] std::string OtherSentence();
    [[nodiscard]] std::string Alternative();

    bool utf8_ = false;
    bool ascii_ = false;
    std::string_view wide_;
    CharsetConverter other_;
    CharsetGround ground_ = CharsetGround::Assumed;
    std::size_t utf8_pieces_ = 0;
    std::size_t other_pieces_ = 0;
    std::vector<std::uint32_t> other_lines_;
    std::vector<std::string> examples_;
    std::optional<CharsetConverter> named_;
    std::string named_as_;
};

}  // namespace orvik::book
