#include "book/ldif_sets.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orvik::book {
namespace {

constexpr LdifNames Same(std::string_view name) {
    return {name, name, name, name};
}

struct PhoneKind {
    std::string_view Type;
    LdifNames Names;
};

// The first that a phone has.
constexpr std::array kPhones = {
    PhoneKind{"fax", Same("facsimileTelephoneNumber")},
    PhoneKind{"pager", {"pager", "pagerPhone", "pager", "pager"}},
    PhoneKind{"cell", {"mobile", "cellPhone", "mobile", "mobile"}},
    PhoneKind{"car", Same("carPhone")},
    PhoneKind{"home", Same("homePhone")},
    PhoneKind{"work", Same("telephoneNumber")},
};

constexpr std::array<LdifNames, 7> kWork = {
    LdifNames{"postOfficeBox", "postOfficeBox", "postOfficeBox", ""},
    {"mozillaWorkStreet2", "", "mozillaWorkStreet2", "mozillaWorkStreet2"},
    {"street", "streetAddress", "streetAddress", "streetAddress"},
    {"l", "locality", "l", "l"},
    Same("st"),
    Same("postalCode"),
    {"c", "countryName", "c", "c"}};
constexpr std::array<LdifNames, 7> kHome = {
    Same(""),
    {"mozillaHomeStreet2", "", "mozillaHomeStreet2", "mozillaHomeStreet2"},
    {"mozillaHomeStreet", "", "mozillaHomeStreet", "mozillaHomeStreet"},
    {"mozillaHomeLocalityName", "", "mozillaHomeLocalityName", "mozillaHomeLocalityName"},
    {"mozillaHomeState", "", "mozillaHomeState", "mozillaHomeState"},
    {"mozillaHomePostalCode", "", "mozillaHomePostalCode", "mozillaHomePostalCode"},
    {"mozillaHomeCountryName", "", "mozillaHomeCountryName", "mozillaHomeCountryName"}};

struct SimpleField {
    NameId Name;
    LdifNames Names;
};

constexpr std::array kSimple = {
    SimpleField{field::kNote, Same("description")},
    SimpleField{field::kTitle, Same("title")},
    SimpleField{field::kUid, Same("uid")},
    SimpleField{field::kMozillaHtml,
                {"mozillaUseHtmlMail",
                 "xmozillausehtmlmail",
                 "xmozillausehtmlmail",
                 "xmozillausehtmlmail"}},
    SimpleField{field::kAim, {"nsAIMid", "nsAIMid", "nsAIMid", "nscpaimscreenname"}},
    SimpleField{field::kCustom1, {"mozillaCustom1", "custom1", "mozillaCustom1", "mozillaCustom1"}},
    SimpleField{field::kCustom2, {"mozillaCustom2", "custom2", "mozillaCustom2", "mozillaCustom2"}},
    SimpleField{field::kCustom3, {"mozillaCustom3", "custom3", "mozillaCustom3", "mozillaCustom3"}},
    SimpleField{field::kCustom4, {"mozillaCustom4", "custom4", "mozillaCustom4", "mozillaCustom4"}},
    SimpleField{field::kNickname,
                {"mozillaNickname", "xmozillanickname", "xmozillanickname", "xmozillanickname"}},
};

}  // namespace

std::string_view LdifNames::In(LdifAttributes set) const {
    switch (set) {
        case LdifAttributes::Netscape:
            return Netscape;
        case LdifAttributes::KContacts:
            return KContacts;
        case LdifAttributes::Evolution:
            return Evolution;
        default:
            return Mozilla;
    }
}

PhoneNames PhoneNamesOf(const Book& book, const Property& phone) {
    const Details& details = book.DetailsOf(phone);
    const auto has = [&](std::string_view type) {
        return std::any_of(
            details.Params.begin(), details.Params.end(), [type](const Param& param) {
                return param.Name == field::kType && SameName(param.Value, type);
            });
    };
    for (const PhoneKind& kind : kPhones) {
        if (has(kind.Type)) {
            return {kind.Names, details.Params.size() == 1 && details.Group.empty()};
        }
    }
    return {kPhones.back().Names, false};
}

bool IsHomeAddress(const Book& book, const Property& address) {
    const auto& params = book.DetailsOf(address).Params;
    return std::any_of(params.begin(), params.end(), [](const Param& param) {
        return SameName(param.Value, "home");
    });
}

LdifNames AddressNames(bool home, std::size_t part) {
    return home ? kHome[part] : kWork[part];
}

LdifNames SimpleNames(NameId name) {
    for (const SimpleField& one : kSimple) {
        if (one.Name == name) {
            return one.Names;
        }
    }
    return {};
}

LdifNames EmailNames(std::size_t number) {
    if (number == 1) {
        return {"mozillaSecondEmail", "mail", "mozillaSecondEmail", "mozillaSecondEmail"};
    }
    return number == 0 ? Same("mail") : LdifNames{"mail", "mail", "otherMailbox", "mail"};
}

LdifNames UrlNames(bool home) {
    return home ? LdifNames{"mozillaHomeUrl", "homeUrl", "homeUrl", "homeUrl"}
                : LdifNames{"mozillaWorkUrl", "workUrl", "workUrl", "workUrl"};
}

}  // namespace orvik::book
