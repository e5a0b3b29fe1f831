// What stands for letters in a page of HTML.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// AppendWithoutEntities: text with letters in place of entities; what is none, or stands for no
// letter, stays as it stands. A number needs no semicolon. Linear.
//   "R&amp;D &#233; &nix;" -> "R&D \u00E9 &nix;"
void AppendWithoutEntities(std::string_view text, std::string& to);
[[nodiscard]] std::string WithoutEntities(std::string_view text);

}  // namespace orvik::book
