// Names of files, and what else is not ours, as text that Qt shows as it stands.

#pragma once

#include <QString>
#include <string_view>

namespace orvik {

// ShownName: the letters of a name that is only shown; a letter that would make it look like
// another name is an escape (app/printable.h). The first form takes the bytes of a name, or of a
// title with one.
//   "a\nb" -> "a\\x0Ab"
[[nodiscard]] QString ShownName(std::string_view name);
[[nodiscard]] QString ShownName(const QString& name);

// ShortName: the same for a sentence, which a name of thousands of letters would make as wide as no
// screen is: an ellipsis stands for the middle of a long one.
[[nodiscard]] QString ShortName(std::string_view name);

// PlainTip: a tool tip that shows a text, also where Qt would take it for HTML. A long text is
// broken into lines of at most kTipColumns letters; of a very long one its first kTipLetters are
// shown, so that the tip stays on the screen.
//   "a <b>" -> "<p>a &lt;b&gt;</p>";  "a & b" -> "a & b"
inline constexpr int kTipColumns = 80;
inline constexpr int kTipLetters = 1000;
[[nodiscard]] QString PlainTip(const QString& text);

}  // namespace orvik
