// An address book as records, shaped as vCard is: what every format can be read into. Fields
// without a name in vCard are called X-ORVIK-<FORMAT>-<field>. docs/book.md explains the model.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "book/field_names.h"

namespace orvik::book {

// Where a record came from: its file, its first line and how many it has, its bytes in the source's
// text. A record that came from no file has no lines.
struct Origin {
    std::uint32_t File = 0;
    std::uint32_t Line = 0;
    std::uint32_t Lines = 0;
    std::uint32_t Offset = 0;
    std::uint32_t Bytes = 0;
};

// One parameter; the value is UTF-8, without quotes and escapes.
struct Param {
    NameId Name = 0;
    std::string_view Value;
};

// What few properties have, kept aside: the group before the dot, and the parameters.
struct Details {
    std::string_view Group;
    std::span<const Param> Params;
};

// A field. The value is UTF-8 and stands in a source or in the book's arena. How it is written down
// follows from the name (ValueFormOf).
struct Property {
    std::string_view Value;
    NameId Name = 0;
    std::uint32_t File = 0;
    std::uint32_t Line = 0;     // 0 for one that came from no file
    std::uint32_t Details = 0;  // in Book::DetailsOf; 0 for none
};
// Books of millions of fields fit into memory.
static_assert(sizeof(Property) <= 48);

enum class ContactKind : std::uint8_t { Person, List };

// How a record was written down, or is to be; None for those of old formats that were read, which
// are always written anew.
enum class Dialect : std::uint8_t {
    None,
    Ldif,
    VCard21,
    VCard30,
    VCard40,
    Csv,
    Netscape3,
    Juno,
    PegasusList,
    PegasusText,
    PlainList,
    Mutt,
    Pine,
    Abook
};

struct Contact {
    std::span<Property> Properties;  // in the book's arena
    Origin From;
    ContactKind Kind = ContactKind::Person;
    Dialect Form = Dialect::None;
    bool Changed = false;
    // The bytes of the source are UTF-8, but for one broken letter at most, so they can stand in a
    // UTF-8 file.
    bool IsUtf8 = true;
    // What was told about reading it, by number in the book's report.
    std::uint32_t FirstRemark = 0;
    std::uint32_t Remarks = 0;
};

// How the value of a property is kept.
enum class ValueForm : std::uint8_t {
    Text,     // as a person reads it
    Parts,    // components by ";", each of values by ","; \\ \, \; \n are escapes
    List,     // values by ","; the same escapes
    Verbatim  // as vCard 3.0 writes it, on one line: nobody knows whether a backslash is an escape
};

[[nodiscard]] ValueForm ValueFormOf(const FieldNames& names, NameId name);

// What a field of another format is called.
inline constexpr std::string_view kCarriedFromLdif = "X-ORVIK-LDIF-";
inline constexpr std::string_view kCarriedFromVCard = "X-ORVIK-VCARD-";
inline constexpr std::string_view kCarriedFromCsv = "X-ORVIK-CSV-";
// What a value is called whose place another record's has.
inline constexpr std::string_view kCarriedFromMerge = "X-ORVIK-MERGED-";
// The option of such an attribute of LDIF that stands beside what programs know, not for a part of
// it.
inline constexpr std::string_view kBesides = "x-more";

}  // namespace orvik::book
