// The people that the header of a message names.

#pragma once

#include <string>
#include <string_view>

#include "book/mail/mail_findings.h"

namespace orvik::book {

// AddHeader: adds what a field of a header says: people, identifiers, the date. The value is as it
// stands in the message, folded and encoded.
void AddHeader(std::string_view name, const char* value, MailTime time, MailFindings& findings);

// TimeOf: when a date of a header is, kNoTime for what is none.
//   "Thu, 1 Jan 1998 10:00:00 +0100" -> 883645200
[[nodiscard]] MailTime TimeOf(const char* date);

// DecodedName: a name as a person reads it, in one line, without quotes around it.
//   "'Ada  Abbott'" -> "Ada Abbott"
[[nodiscard]] std::string DecodedName(std::string_view name);

}  // namespace orvik::book
