// Writes the working text as a Netscape 4.x address book. Format: docs/formats/netscape4-ldif.md.

#pragma once

#include <string>
#include <string_view>

#include "formats/progress.h"

namespace orvik {

// WriteLdif: one LDIF record per entry of a text in the Native form; the last one ends with one
// CR LF.
//   "A1\r\n-nick-\r\nAl\r\n"  ->  "dn: cn=Al,mail=A1\r\ncn: Al\r\n...xnavusehtmlmail: TRUE\r\n"
// Progress counts the characters of the address block.
// Errors: RunTimeError 5 if the text holds no entry.
[[nodiscard]] std::string WriteLdif(std::string_view native, Progress& progress);

}  // namespace orvik
