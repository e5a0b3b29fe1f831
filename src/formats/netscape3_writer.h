// Writes the working text as a Netscape 3.x address book. Format: docs/formats/netscape3-html.md.

#pragma once

#include <string>
#include <string_view>

namespace orvik {

// The length in bytes of what stands before the first entry of a book.
inline constexpr std::size_t kNetscape3HeaderLength = 198;

// WriteNetscape3: an HTML definition list with one mailto link per entry of a Native text.
//   "A1\r\n-nick-\r\nAl\r\n"  ->  "<!DOCTYPE NETSCAPE-Addressbook-file-1>\r\n...
//       <DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>\r\n<DD>\r\n\r\n</DL><p>"
// A blank in an address becomes "_" and a double quote "'"; nicknames are copied unchanged.
// Errors: RunTimeError 5 if an address line is a lone line feed.
[[nodiscard]] std::string WriteNetscape3(std::string_view text);

}  // namespace orvik
