// Letters of a page: what stands for others in it.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// HtmlText: the text that a piece of a page shows: entities become letters, <BR> with the line end
// behind it a line feed. Comments and <P> go, and so do blanks around each line; any other tag
// stays as it stands, as does what is no entity.
//   "R&amp;D &#233; &nix;<BR>\n  <x>" -> "R&D \u00E9 &nix;", line feed, "<x>"
[[nodiscard]] std::string HtmlText(std::string_view piece);

// WithoutPercents: an address whose signs may be escaped; an escape stays if it stands for no
// letter or sign, or for a second at.
//   "ada%40example.org" -> "ada@example.org";  "al%40b@c" -> "al%40b@c"
[[nodiscard]] std::string WithoutPercents(std::string_view text);

}  // namespace orvik::book
