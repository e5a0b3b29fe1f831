#include "book/ldif_name_cache.h"

#include <algorithm>
#include <string>

#include "book/record.h"

namespace orvik::book {

LdifAttribute& LdifNameCache::Of(std::string_view name) {
    if (LdifAttribute* const known = Find(name)) {
        return *known;
    }
    LdifAttribute* const first = places_.data() + FirstPlace(name);
    LdifAttribute* const free = std::find_if(
        first, first + kTries, [](const LdifAttribute& one) { return one.Field == nullptr; });
    // Where all are taken, one that is in use is looked for anew when it comes again.
    LdifAttribute& place = free == first + kTries ? *first : *free;
    place = {name,
             &LdifFieldOf(name),
             FieldNames::kNone,
             StartsAsName(name, kCarriedFromVCard),
             nullptr};
    return place;
}

NameId LdifNameCache::CarriedAs(std::string_view name) {
    LdifAttribute* const known = Find(name);
    if (known != nullptr && known->CarriedAs != FieldNames::kNone) {
        return known->CarriedAs;
    }
    const NameId id = names_.Intern(std::string(kCarriedFromLdif).append(name));
    if (known != nullptr) {
        known->CarriedAs = id;
    }
    return id;
}

}  // namespace orvik::book
