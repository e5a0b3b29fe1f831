// What may stand in brackets instead of a domain: the number of a machine.

#pragma once

#include <string_view>

#include "book/address_flaw.h"

namespace orvik::book {

// LiteralFlaw: what is to be said of a literal, given without its brackets: Machine for an address
// by RFC 5321, OneGroup where "::" stands for a single group, NoIpAddress and UnknownLiteral.
//   "192.0.2.1", "IPv6:2001:db8::1" -> Machine;  "192.0.2" -> UnknownLiteral
[[nodiscard]] Flaw LiteralFlaw(std::string_view literal);

}  // namespace orvik::book
