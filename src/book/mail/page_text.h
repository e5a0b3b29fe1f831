// The text of a page of HTML, as far as addresses stand in it.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// AppendHtmlText: appends what a reader sees of a page, with a line break where a block ends, and
// the addresses that its links lead to, a line each. Linear.
//   "<p>ada<b>@example.org</b>" -> "\nada@example.org"
//   "<a href='mailto:al%40example.org'>Al</a>" -> "\nal@example.org\nAl"
void AppendHtmlText(std::string_view html, std::string& to);

// AppendMailto: the addresses of a link behind "mailto:", a line each; also those that it copies
// the message to.
//   "al@example.org,bo@example.org?cc=cy@example.org" -> three lines
void AppendMailto(std::string_view link, std::string& to);

}  // namespace orvik::book
