// What the columns of CSV files mean, in one table: names, addresses, phones and the rest, as the
// table of header words calls them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "book/field_names.h"

namespace orvik::book {

enum class CsvMeaning : std::uint8_t {
    Carried,    // no field of vCard: kept under its header
    Simple,     // a property of its own
    Single,     // the same, once a record
    NamePart,   // a component of N
    OrgPart,    // a component of ORG
    Post,       // a component of ADR
    PostMore,   // one more line of the component
    PostWhole,  // a whole address in one cell
    Values,     // several values of a list
    Date,
    Year,  // of the birthday
    Month,
    Day,
    Address,
    Sort,         // of an address: SMTP, or EX for one that is no address of the internet
    AddressName,  // how an address is shown
    Kind,         // home or work, of the numbered column beside it
    Photo,        // an address of a picture
    Html          // TRUE or FALSE
};

struct CsvField {
    std::string_view Name;   // "street.home"
    std::string_view Shown;  // to a person, "home street"; the name, where it says enough
    CsvMeaning Meaning = CsvMeaning::Carried;
    NameId Property = FieldNames::kNone;
    std::string_view Types;  // of the property, parted by blanks; empty for none
    std::size_t Part = 0;    // the component
};

[[nodiscard]] std::size_t CsvFieldCount();
[[nodiscard]] const CsvField& CsvFieldAt(std::size_t index);

// CsvFieldOf: by the name in the table of header words; nothing of another name is known, so it is
// carried.
//   "street.home" -> Post, ADR, home, 2;  "mileage" -> Carried
[[nodiscard]] const CsvField& CsvFieldOf(std::string_view name);

// CsvFieldShown: by what a person calls it, or by its name, in any case; null for what is unknown.
//   "Given Name" -> given;  "address" -> email1;  "nonsense" -> null
[[nodiscard]] const CsvField* CsvFieldShown(std::string_view shown);

// What a person calls a field: "given name".
[[nodiscard]] std::string_view ShownName(const CsvField& field);

}  // namespace orvik::book
