// The attributes of one file of LDIF, by their names as they are written: each record has the same
// ones, so nearly none needs to be looked for in the tables.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "book/field_names.h"
#include "book/ldif_fields.h"

namespace orvik::book {

struct LdifAttribute {
    std::string_view Name;
    const LdifField* Field = nullptr;  // none for a place that is free
    NameId CarriedAs = FieldNames::kNone;
    bool IsCarriedVCard = false;    // Orvik's own way to carry a field of vCard through LDIF
    LdifAttribute* Next = nullptr;  // the one that came behind it the last time
};

class LdifNameCache {
 public:
    // The names of the book; they must outlive this.
    explicit LdifNameCache(FieldNames& names) : names_(names) {}

    // The attribute of the next line, if it was met before; nullptr for any other. Records are much
    // alike, so it is mostly the one that came behind the last one before.
    [[nodiscard]] LdifAttribute* Known(std::string_view name) {
        const bool again = last_ != nullptr && last_->Next != nullptr &&
                           IsSame(last_->Next->Name, name) && last_->Next->Field != nullptr;
        LdifAttribute* const known = again ? last_->Next : Find(name);
        if (last_ != nullptr && known != nullptr) {
            last_->Next = known;
        }
        last_ = known;
        return known;
    }
    // The same with what the tables know of a new one. The name must stay where it is.
    LdifAttribute& Of(std::string_view name);
    // The number of the name under which it is carried.
    NameId CarriedAs(std::string_view name);

 private:
    static constexpr std::size_t kPlaces = 256;
    static constexpr std::size_t kTries = 4;

    [[nodiscard]] LdifAttribute* Find(std::string_view name) {
        LdifAttribute* const places = places_.data() + FirstPlace(name);
        for (std::size_t i = 0; i < kTries; ++i) {
            if (IsSame(places[i].Name, name) && places[i].Field != nullptr) {
                return places + i;
            }
        }
        return nullptr;
    }
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

    // Whether short texts are equal, without a call: words that overlap, or the three letters.
    [[nodiscard]] static bool IsSame(std::string_view one, std::string_view other) {
        const std::size_t length = one.size();
        if (length != other.size()) {
            return false;
        }
        if (length >= sizeof(std::uint64_t)) {
            std::size_t at = 0;
            for (; at + sizeof(std::uint64_t) < length; at += sizeof(std::uint64_t)) {
                if (Word<std::uint64_t>(one, at) != Word<std::uint64_t>(other, at)) {
                    return false;
                }
            }
            at = length - sizeof(std::uint64_t);
            return Word<std::uint64_t>(one, at) == Word<std::uint64_t>(other, at);
        }
        if (length >= sizeof(std::uint32_t)) {
            const std::size_t at = length - sizeof(std::uint32_t);
            return Word<std::uint32_t>(one, 0) == Word<std::uint32_t>(other, 0) &&
                   Word<std::uint32_t>(one, at) == Word<std::uint32_t>(other, at);
        }
        return length == 0 || (one[0] == other[0] && one[length / 2] == other[length / 2] &&
                               one[length - 1] == other[length - 1]);
    }
    template <class Number>
    [[nodiscard]] static Number Word(std::string_view text, std::size_t at) {
        Number word = 0;
        std::memcpy(&word, text.data() + at, sizeof word);
        return word;
    }

    FieldNames& names_;
    LdifAttribute* last_ = nullptr;
    std::array<LdifAttribute, kPlaces + kTries> places_;
};

}  // namespace orvik::book
