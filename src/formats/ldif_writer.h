// Writes the working text as a Netscape 4.x address book. Format: docs/formats/netscape4-ldif.md.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/late_text.h"
#include "formats/progress.h"

namespace orvik {

// GiveLdif: one LDIF record per entry of a text in the Native form; the last one ends with one
// CR LF. take is given large pieces of it, which end with a record; nothing if there is no entry.
//   "A1\r\n-nick-\r\nAl\r\n"  ->  "dn: cn=Al,mail=A1\r\ncn: Al\r\n...xnavusehtmlmail: TRUE\r\n"
void GiveLdif(std::string_view native, const TakePiece& take);

// PassLdif: tells progress what writing these records passes, without them: the characters of the
// address block, and each record.
// Errors: RunTimeError 5 if the text holds no entry.
void PassLdif(std::string_view native, Progress& progress);
// The same for the Native text of entries whose addresses have these lengths.
void PassLdif(const std::vector<std::uint32_t>& address_lengths, Progress& progress);

// WriteLdif: both; the records as one text.
[[nodiscard]] std::string WriteLdif(std::string_view native, Progress& progress);

}  // namespace orvik
