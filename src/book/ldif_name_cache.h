// The attributes of one file of LDIF, by their names as they are written: each record has the same
// ones, so nearly none needs to be looked for in the tables.

#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "book/field_names.h"
#include "book/ldif_fields.h"

namespace orvik::book {

struct LdifAttribute {
    std::string_view Name;
    const LdifField* Field = nullptr;  // none for a place that is free
    NameId CarriedAs = FieldNames::kNone;
    bool IsCarriedVCard = false;  // Orvik's own way to carry a field of vCard through LDIF
};

class LdifNameCache {
 public:
    // The names of the book; they must outlive this.
    explicit LdifNameCache(FieldNames& names) : names_(names) {}

    // An attribute that was met before; nullptr for any other.
    [[nodiscard]] LdifAttribute* Known(std::string_view name) {
        LdifAttribute* const places = places_.data() + FirstPlace(name);
        for (std::size_t i = 0; i < kTries; ++i) {
            if (places[i].Name == name && places[i].Field != nullptr) {
                return places + i;
            }
        }
        return nullptr;
    }
    // The same, with what the tables know of a new one. The name must stay where it is.
    LdifAttribute& Of(std::string_view name);
    // The number of the name under which it is carried.
    NameId CarriedAs(std::string_view name);

 private:
    static constexpr std::size_t kPlaces = 256;
    static constexpr std::size_t kTries = 4;

    // By the length and three letters, which tell the names of address books apart.
    [[nodiscard]] static std::size_t FirstPlace(std::string_view name) {
        const auto letter = [name](std::size_t at) {
            return static_cast<std::size_t>(static_cast<unsigned char>(name[at]));
        };
        return name.empty() ? 0
                            : (name.size() + 3 * letter(0) + 7 * letter(name.size() - 1) +
                               11 * letter(name.size() / 2)) %
                                  kPlaces;
    }

    FieldNames& names_;
    std::array<LdifAttribute, kPlaces + kTries> places_;
};

}  // namespace orvik::book
