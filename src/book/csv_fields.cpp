#include "book/csv_fields.h"

#include <algorithm>
#include <array>

namespace orvik::book {
namespace {

// In a scope of its own, so that the short names stay here.
constexpr auto kCsvFields = [] {
    using enum CsvMeaning;
    using namespace field;
    // Components of ADR.
    enum : std::size_t { kBox, kExtended, kStreet, kCity, kRegion, kCode, kCountry };
    constexpr NameId kNo = FieldNames::kNone;
    return std::array{
        CsvField{"prefix", "name prefix", NamePart, kN, "", 3},
        CsvField{"given", "given name", NamePart, kN, "", 1},
        CsvField{"middle", "middle name", NamePart, kN, "", 2},
        CsvField{"family", "family name", NamePart, kN, "", 0},
        CsvField{"suffix", "name suffix", NamePart, kN, "", 4},
        CsvField{"fn", "name", Single, kFn, ""},
        CsvField{"nickname", "", Simple, kNickname, ""},
        CsvField{"email1", "address", Address, kEmail, ""},
        CsvField{"email2", "address 2", Address, kEmail, ""},
        CsvField{"email3", "address 3", Address, kEmail, ""},
        CsvField{"email4", "address 4", Address, kEmail, ""},
        CsvField{"emailN", "address", Address, kEmail, ""},
        CsvField{"emailN.label", "kind of address", Kind, kEmail, ""},
        CsvField{"email1.type", "sort of address", Sort, kNo, ""},
        CsvField{"email2.type", "sort of address 2", Sort, kNo, ""},
        CsvField{"email3.type", "sort of address 3", Sort, kNo, ""},
        CsvField{"email1.name", "shown address", AddressName, kNo, "", 0},
        CsvField{"email2.name", "shown address 2", AddressName, kNo, "", 1},
        CsvField{"email3.name", "shown address 3", AddressName, kNo, "", 2},
        CsvField{"phone", "", Simple, kTel, ""},
        CsvField{"phoneN", "phone", Simple, kTel, ""},
        CsvField{"phoneN.label", "kind of phone", Kind, kTel, ""},
        CsvField{"phone.home", "home phone", Simple, kTel, "home"},
        CsvField{"phone.home2", "home phone 2", Simple, kTel, "home"},
        CsvField{"phone.work", "work phone", Simple, kTel, "work"},
        CsvField{"phone.work2", "work phone 2", Simple, kTel, "work"},
        CsvField{"phone.mobile", "mobile phone", Simple, kTel, "cell"},
        CsvField{"phone.pager", "pager", Simple, kTel, "pager"},
        CsvField{"phone.car", "car phone", Simple, kTel, "car"},
        CsvField{"phone.main", "main phone", Simple, kTel, "main"},
        CsvField{"phone.other", "other phone", Simple, kTel, "other"},
        CsvField{"phone.isdn", "ISDN", Simple, kTel, "isdn"},
        CsvField{"phone.company", "company phone", Simple, kTel, "work x-company"},
        CsvField{"phone.assistant", "assistant's phone", Simple, kTel, "x-assistant"},
        CsvField{"phone.callback", "callback phone", Simple, kTel, "x-callback"},
        CsvField{"phone.radio", "radio phone", Simple, kTel, "x-radio"},
        CsvField{"phone.telex", "telex", Simple, kTel, "x-telex"},
        CsvField{"phone.tty", "text phone", Simple, kTel, "x-tty"},
        CsvField{"phone.fax", "fax", Simple, kTel, "fax"},
        CsvField{"phone.fax.home", "home fax", Simple, kTel, "home fax"},
        CsvField{"phone.fax.work", "work fax", Simple, kTel, "work fax"},
        CsvField{"phone.fax.other", "other fax", Simple, kTel, "other fax"},
        CsvField{"street.home", "home street", Post, kAdr, "home", kStreet},
        CsvField{"street.home2", "home street 2", Post, kAdr, "home", kExtended},
        CsvField{"street.home3", "home street 3", PostMore, kAdr, "home", kExtended},
        CsvField{"city.home", "home city", Post, kAdr, "home", kCity},
        CsvField{"region.home", "home region", Post, kAdr, "home", kRegion},
        CsvField{"zip.home", "home postal code", Post, kAdr, "home", kCode},
        CsvField{"country.home", "home country", Post, kAdr, "home", kCountry},
        CsvField{"pobox.home", "home post box", Post, kAdr, "home", kBox},
        CsvField{"adr.home", "whole home address", PostWhole, kAdr, "home", kStreet},
        CsvField{"adr.home.formatted", "home label", PostWhole, kAdr, "home", kStreet},
        CsvField{"street.work", "work street", Post, kAdr, "work", kStreet},
        CsvField{"street.work2", "work street 2", Post, kAdr, "work", kExtended},
        CsvField{"street.work3", "work street 3", PostMore, kAdr, "work", kExtended},
        CsvField{"city.work", "work city", Post, kAdr, "work", kCity},
        CsvField{"region.work", "work region", Post, kAdr, "work", kRegion},
        CsvField{"zip.work", "work postal code", Post, kAdr, "work", kCode},
        CsvField{"country.work", "work country", Post, kAdr, "work", kCountry},
        CsvField{"pobox.work", "work post box", Post, kAdr, "work", kBox},
        CsvField{"adr.work", "whole work address", PostWhole, kAdr, "work", kStreet},
        CsvField{"adr.work.formatted", "work label", PostWhole, kAdr, "work", kStreet},
        CsvField{"street.other", "other street", Post, kAdr, "other", kStreet},
        CsvField{"street.other2", "other street 2", Post, kAdr, "other", kExtended},
        CsvField{"street.other3", "other street 3", PostMore, kAdr, "other", kExtended},
        CsvField{"city.other", "other city", Post, kAdr, "other", kCity},
        CsvField{"region.other", "other region", Post, kAdr, "other", kRegion},
        CsvField{"zip.other", "other postal code", Post, kAdr, "other", kCode},
        CsvField{"country.other", "other country", Post, kAdr, "other", kCountry},
        CsvField{"pobox.other", "other post box", Post, kAdr, "other", kBox},
        CsvField{"adr.other", "whole other address", PostWhole, kAdr, "other", kStreet},
        CsvField{"adrN.street", "street", Post, kAdr, "", kStreet},
        CsvField{"adrN.street2", "street 2", Post, kAdr, "", kExtended},
        CsvField{"adrN.city", "city", Post, kAdr, "", kCity},
        CsvField{"adrN.region", "region", Post, kAdr, "", kRegion},
        CsvField{"adrN.zip", "postal code", Post, kAdr, "", kCode},
        CsvField{"adrN.country", "country", Post, kAdr, "", kCountry},
        CsvField{"adrN.pobox", "post box", Post, kAdr, "", kBox},
        CsvField{"adrN.formatted", "whole postal address", PostWhole, kAdr, "", kStreet},
        CsvField{"adrN.label", "kind of postal address", Kind, kAdr, ""},
        CsvField{"org", "organisation", OrgPart, kOrg, "", 0},
        CsvField{"orgN", "organisation", OrgPart, kOrg, "", 0},
        CsvField{"dept", "department", OrgPart, kOrg, "", 1},
        CsvField{"orgN.dept", "department", OrgPart, kOrg, "", 1},
        CsvField{"title", "job title", Simple, kTitle, ""},
        CsvField{"orgN.title", "job title", Simple, kTitle, ""},
        CsvField{"role", "", Simple, kRole, ""},
        CsvField{"note", "", Simple, kNote, ""},
        CsvField{"label", "groups", Values, kCategories, ""},
        CsvField{"url", "web page", Simple, kUrl, ""},
        CsvField{"url.home", "home web page", Simple, kUrl, "home"},
        CsvField{"url.work", "work web page", Simple, kUrl, "work"},
        CsvField{"urlN", "web page", Simple, kUrl, ""},
        CsvField{"urlN.label", "kind of web page", Kind, kUrl, ""},
        CsvField{"birthday", "", Date, kBday, ""},
        CsvField{"birthday.year", "birth year", Year, kBday, ""},
        CsvField{"birthday.month", "birth month", Month, kBday, ""},
        CsvField{"birthday.day", "birth day", Day, kBday, ""},
        CsvField{"anniversary", "", Date, kAnniversary, ""},
        CsvField{"custom1", "custom 1", Simple, kCustom1, ""},
        CsvField{"custom2", "custom 2", Simple, kCustom2, ""},
        CsvField{"custom3", "custom 3", Simple, kCustom3, ""},
        CsvField{"custom4", "custom 4", Simple, kCustom4, ""},
        CsvField{"im.aim", "AIM name", Simple, kAim, ""},
        CsvField{"given.phonetic", "given name as spoken", Simple, kPhoneticFirst, ""},
        CsvField{"family.phonetic", "family name as spoken", Simple, kPhoneticLast, ""},
        CsvField{"uid", "", Single, kUid, ""},
        CsvField{"mailer", "mail program", Simple, kMailer, ""},
        CsvField{"photo", "picture", Photo, kPhoto, ""},
        CsvField{"wantshtml", "wants HTML", Html, kMozillaHtml, ""},
    };
}();

constexpr CsvField kCarriedField{
    "none", "kept under its header", CsvMeaning::Carried, FieldNames::kNone, ""};

}  // namespace

std::size_t CsvFieldCount() {
    return kCsvFields.size();
}

const CsvField& CsvFieldAt(std::size_t index) {
    return index < kCsvFields.size() ? kCsvFields[index] : kCarriedField;
}

const CsvField& CsvFieldOf(std::string_view name) {
    const auto* const found =
        std::find_if(kCsvFields.begin(), kCsvFields.end(), [name](const CsvField& one) {
            return one.Name == name;
        });
    return found == kCsvFields.end() ? kCarriedField : *found;
}

const CsvField* CsvFieldShown(std::string_view shown) {
    if (SameName(shown, kCarriedField.Name)) {
        return &kCarriedField;
    }
    const auto* const found =
        std::find_if(kCsvFields.begin(), kCsvFields.end(), [shown](const auto& one) {
            return SameName(one.Name, shown) || (!one.Shown.empty() && SameName(one.Shown, shown));
        });
    return found == kCsvFields.end() ? nullptr : found;
}

std::string_view ShownName(const CsvField& field) {
    return field.Shown.empty() ? field.Name : field.Shown;
}

}  // namespace orvik::book
