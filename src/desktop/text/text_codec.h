// The one place where the bytes of the working text become letters on the screen and letters become
// bytes again.
//
// Each text is shown in the encoding that EncodingOf finds. The five bytes that Windows-1252 leaves
// undefined are shown as the C1 controls of the same number. Every text comes back byte for byte.

#pragma once

#include <QString>
#include <QStringView>
#include <cstddef>
#include <string>
#include <string_view>

#include "app/encoding.h"

namespace orvik {

// ToLetters: the letters of a text that is in this encoding.
//   "\x80", Windows1252 -> U+20AC
[[nodiscard]] QString ToLetters(std::string_view bytes, Encoding encoding);
[[nodiscard]] inline QString ToLetters(std::string_view bytes) {
    return ToLetters(bytes, EncodingOf(bytes));
}

// CanEncode: whether each letter exists in this encoding.
[[nodiscard]] bool CanEncode(QStringView letters, Encoding encoding);

// ToBytes: the bytes of letters. Letters that Windows-1252 lacks turn the whole text, and encoding,
// into UTF-8.
//   U+20AC, Windows1252 -> "\x80";  U+0416, Windows1252 -> "\xD0\x96", and encoding is Utf8
[[nodiscard]] std::string ToBytes(QStringView letters, Encoding& encoding);

// The text of a text box: CR LF is a paragraph break (U+2029), a lone CR a line break (U+2028), a
// lone LF its visible sign (U+240A). This is what QTextDocument::toRawText returns.
//   "a\r\nb\rc\nd" -> "a" U+2029 "b" U+2028 "c" U+240A "d"
[[nodiscard]] QString ToBoxText(std::string_view bytes, Encoding encoding);
[[nodiscard]] std::string FromBoxText(QStringView box_text, Encoding& encoding);

// Line breaks of a box text as characters, and back.
[[nodiscard]] QString WithLineBreaks(QStringView box_text);
[[nodiscard]] QString FromLineBreaks(QStringView letters);

// ByteOffset: how many bytes the box text before a position takes.
//   "a" U+2029 "\u00FC" "b", 3, Utf8 -> 5
[[nodiscard]] std::size_t ByteOffset(QStringView box_text, qsizetype position, Encoding encoding);

// BoxPosition: where the byte at offset stands in the box text of bytes. An offset inside a letter
// or inside CR LF gives the position behind it.
//   "a\r\n\xC3\xBC" "b", 5, Utf8 -> 3
[[nodiscard]] qsizetype BoxPosition(std::string_view bytes, std::size_t offset, Encoding encoding);

}  // namespace orvik
