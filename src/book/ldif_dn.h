// The names of records in LDIF, by which lists name their members.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// DnOf: the name of a record as Mozilla writes it, commas unescaped; empty without both.
//   "Ada Abbott", "ada@example.org" -> "cn=Ada Abbott,mail=ada@example.org"
[[nodiscard]] std::string DnOf(std::string_view name, std::string_view address);
void AppendDn(std::string_view name, std::string_view address, std::string& to);

struct DnParts {
    std::string Name;     // of the person
    std::string Address;  // empty for none
};

// PartsOfDn: name and address in the name of a record; escapes and quotes are read as directories
// write them. The address is behind the last ",mail=".
//   "cn=Abbott, Ada,mail=ada@example.org" -> "Abbott, Ada", "ada@example.org"
//   "cn=Abbott\, Ada,ou=people" -> "Abbott, Ada"
[[nodiscard]] DnParts PartsOfDn(std::string_view dn);

// FirstOfDn: the value of the first attribute of a name.
//   "ou=Sales,o=Firm" -> "Sales"
[[nodiscard]] std::string FirstOfDn(std::string_view dn);

}  // namespace orvik::book
