// What a contact is called, and how it is reached: views over its properties, which hold it once.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "book/address_book.h"

namespace orvik::book {

struct PersonName {
    std::string Shown;
    std::string Family;
    std::string Given;
    std::string Middle;
    std::string Prefix;
    std::string Suffix;
};

// NameOf: FN, and the parts of N as texts. Without FN what is shown is the given and the family
// name, else the organisation or its unit, else a nickname, an address, or what LDIF calls it.
[[nodiscard]] PersonName NameOf(const Book& book, const Contact& contact);
// ShownNameOf: what is shown of it alone, sooner.
[[nodiscard]] std::string ShownNameOf(const Book& book, const Contact& contact);

// All of a kind, in the order of the record, as texts; empty ones are left out.
[[nodiscard]] std::vector<std::string> NicknamesOf(const Book& book, const Contact& contact);
[[nodiscard]] std::vector<std::string> AddressesOf(const Contact& contact);
[[nodiscard]] std::vector<std::string> PhonesOf(const Contact& contact);
// The properties that AddressesOf is made of, in the same order, as long as the contact stays.
[[nodiscard]] std::vector<const Property*> AddressFieldsOf(const Contact& contact);

// The value of a property as a person reads it; components stay as they are kept.
[[nodiscard]] std::string TextOf(const Book& book, const Property& property);

// The first value of a name that is not empty; none in another language than the record's.
[[nodiscard]] std::string_view FirstOf(const Book& book, const Contact& contact, NameId name);

// The value of a parameter, empty for none.
[[nodiscard]] std::string_view ParamOf(const Book& book, const Property& property, NameId name);

}  // namespace orvik::book
