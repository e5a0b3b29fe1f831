// Texts of many megabytes where there is room for a line: Qt measures and shapes all of a text
// before it shows the part that fits, which takes seconds for each of them.

#pragma once

#include <QString>
#include <string_view>

class QLineEdit;
class QWidget;

namespace orvik {

// More letters than fit on any screen beside each other.
inline constexpr qsizetype kMostShown = 4096;
// What a field for one line takes: as much as a whole text in edit mode.
inline constexpr qsizetype kMostTyped = 32000;

// Shortened: the beginning of a text that has more letters, with an ellipsis; any other as it is.
//   "abcdef", 3 -> "abc\u2026";  "abc", 3 -> "abc"
[[nodiscard]] QString Shortened(const QString& text, qsizetype most = kMostShown);

// WithoutMiddle: a text that has more letters without its middle, for which an ellipsis stands; any
// other as it is.
//   "abcdefgh", 5 -> "ab\u2026gh"
[[nodiscard]] QString WithoutMiddle(const QString& text, qsizetype most);

// ToShownLetters: the same as Shortened of bytes, in the encoding of them all.
[[nodiscard]] QString ToShownLetters(std::string_view bytes);

// LimitLength: lets a field take this many letters. What would make it longer, pasted, dropped or
// typed, is refused as a whole, before the field measures it, and a tip says so.
void LimitLength(QLineEdit& field, qsizetype most);

// TellTooLong: the tip at a field.
void TellTooLong(QWidget& field, qsizetype most);

}  // namespace orvik
