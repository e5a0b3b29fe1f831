// How the values of a field are compared, and whether a person has only one.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

enum class Comparing : std::uint8_t {
    Ignored,  // names the record, or changes with each saving
    Name,     // FN and N, as words in any order
    Address,
    Phone,
    Parts,  // components, each as text
    List,   // each value for itself
    Date,
    Bytes,  // as they are
    Text
};

struct FieldRule {
    Comparing How = Comparing::Text;
    // The same number for all names of one field: in versions of vCard, and carried.
    std::uint32_t Field = 0;
    // One value is written, another one is carried when records are merged.
    bool IsSingle = false;
    // What two people cannot have in two ways: birthday, anniversary, gender, day of death.
    bool TellsApart = false;
};

class FieldRules {
 public:
    // Knows the names that the book has by now. The book must outlive it.
    explicit FieldRules(const Book& book);

    [[nodiscard]] const FieldRule& Of(NameId name) const { return rules_[name]; }
    // What a field is called: "BDAY", "X-ORVIK-LDIF-SHOESIZE".
    [[nodiscard]] const std::string& NameOf(std::uint32_t field) const { return names_[field]; }

 private:
    std::vector<FieldRule> rules_;
    std::vector<std::string> names_;
};

// CanonicalField: the name of a field in vCard 4.0, in upper case, whatever it is carried under.
//   "X-ORVIK-MERGED-X-ANNIVERSARY" -> "ANNIVERSARY";  "X-ORVIK-VCARD-LABEL" -> "LABEL"
[[nodiscard]] std::string CanonicalField(std::string_view name);

}  // namespace orvik::book
