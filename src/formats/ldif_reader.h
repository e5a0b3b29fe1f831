// Reads a Netscape 4.x address book. Format: docs/formats/netscape4-ldif.md.

#pragma once

#include <string>
#include <string_view>

#include "formats/unread_entries.h"

namespace orvik {

// ReadLdif: the nicknames and addresses of an LDIF text as a list in the ASCII form, each record
// ended by the separator (CR LF for CR).
//   "dn: x\r\nxmozillanickname: Al\r\nmail: A1\r\nsn: y\r\n\r\n"  ->  "\"Al\" <A1>\r\n"
// A text without a known line gives one separator.
// left_out, if it is not null, gets what is not read.
[[nodiscard]] std::string ReadLdif(std::string_view ldif,
                                   std::string_view separator,
                                   UnreadEntries* left_out = nullptr);

// ReadWrittenLdif: what ReadLdif makes of what WriteLdif makes of a Native text, without the way
// there and back.
//   "A1\r\n-nick-\r\nAl\r\n"  ->  "\"Al\" <A1>\r\n"
[[nodiscard]] std::string ReadWrittenLdif(std::string_view native, std::string_view separator);

}  // namespace orvik
