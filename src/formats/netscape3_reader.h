// Reads a Netscape 3.x address book. Format: docs/formats/netscape3-html.md.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// ReadNetscape3: the mailto links of an HTML text, each as the quoted address, a blank, the link
// text and the separator.
//   "x<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>", ","  ->  "\"A1\" Al,"
// A link whose tag ends directly behind the address loses the first character of its text.
[[nodiscard]] std::string ReadNetscape3(std::string_view html, std::string_view separator);

}  // namespace orvik
