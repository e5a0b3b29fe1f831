// What the attributes of LDIF mean, in one table for reading and writing: those of Netscape 4,
// Mozilla and Thunderbird, KContacts, Evolution and directories.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "book/field_names.h"

namespace orvik::book {

enum class LdifMeaning : std::uint8_t {
    Unknown,  // carried under its own name
    Dn,
    ObjectClass,
    Simple,       // a property of its own
    Single,       // the same, once a record
    NamePart,     // a component of N
    WorkAddress,  // a component of ADR
    HomeAddress,
    PostBox,      // a work street, where there is no other
    PostalLines,  // a work street whose lines are parted by $
    HomePostalLines,
    OrgPart,       // a component of ORG
    Unit,          // ou: a component of ORG, or KContacts' role
    AnyPhone,      // a work phone, where there is no other
    Url,           // an address of the web, and a label behind a blank
    ProxyAddress,  // smtp:ADDRESS
    Html,          // TRUE or FALSE
    TimeStamp,
    BirthYear,
    BirthMonth,
    BirthDay,
    Photo,
    Uid,
    Member,
    ListName
};

struct LdifField {
    std::string_view Name;  // in lower case
    LdifMeaning Meaning = LdifMeaning::Unknown;
    NameId Property = FieldNames::kNone;
    std::string_view Type;  // of the property; empty for none
    std::size_t Part = 0;   // the component
};

// The number of fields in the table; one past the last number stands for an unknown one.
[[nodiscard]] std::size_t LdifFieldCount();
[[nodiscard]] const LdifField& LdifFieldAt(std::size_t index);

// LdifFieldOf: the meaning of an attribute in any case; Unknown for one that is in no table.
//   "mail" -> Simple, EMAIL;  "GivenName" -> NamePart 1
[[nodiscard]] const LdifField& LdifFieldOf(std::string_view name);

}  // namespace orvik::book
