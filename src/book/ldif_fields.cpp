#include "book/ldif_fields.h"

#include <algorithm>
#include <array>
#include <vector>

namespace orvik::book {
namespace {

using enum LdifMeaning;
using namespace field;

// Components of ADR.
enum : std::size_t { kBox, kExtended, kStreet, kCity, kRegion, kCode, kCountry };

constexpr NameId kNo = FieldNames::kNone;

constexpr std::array kFields = {
    LdifField{"dn", Dn, kNo, ""},
    LdifField{"objectclass", ObjectClass, kNo, ""},
    LdifField{"cn", Single, kFn, ""},
    LdifField{"commonname", Single, kFn, ""},
    LdifField{"displayname", Single, kFn, ""},
    LdifField{"sn", NamePart, kN, "", 0},
    LdifField{"surname", NamePart, kN, "", 0},
    LdifField{"givenname", NamePart, kN, "", 1},
    LdifField{"vocation", NamePart, kN, "", 3},
    LdifField{"mail", Simple, kEmail, ""},
    LdifField{"mozillasecondemail", Simple, kEmail, ""},
    LdifField{"xmozillasecondemail", Simple, kEmail, ""},
    LdifField{"othermailbox", Simple, kEmail, ""},
    LdifField{"proxyaddresses", ProxyAddress, kEmail, ""},
    LdifField{"xmozillanickname", Simple, kNickname, ""},
    LdifField{"mozillanickname", Simple, kNickname, ""},
    LdifField{"nickname", Simple, kNickname, ""},
    LdifField{"xnavnickname", Simple, kNickname, ""},
    LdifField{"xmozillausehtmlmail", Html, kMozillaHtml, ""},
    LdifField{"mozillausehtmlmail", Html, kMozillaHtml, ""},
    LdifField{"xnavusehtmlmail", Html, kMozillaHtml, ""},
    LdifField{"telephonenumber", Simple, kTel, "work"},
    LdifField{"xmozillaanyphone", AnyPhone, kTel, "work"},
    LdifField{"homephone", Simple, kTel, "home"},
    LdifField{"facsimiletelephonenumber", Simple, kTel, "fax"},
    LdifField{"fax", Simple, kTel, "fax"},
    LdifField{"pagerphone", Simple, kTel, "pager"},
    LdifField{"pager", Simple, kTel, "pager"},
    LdifField{"cellphone", Simple, kTel, "cell"},
    LdifField{"mobile", Simple, kTel, "cell"},
    LdifField{"carphone", Simple, kTel, "car"},
    LdifField{"o", OrgPart, kOrg, "", 0},
    LdifField{"company", OrgPart, kOrg, "", 0},
    LdifField{"organization", OrgPart, kOrg, "", 0},
    LdifField{"organizationname", OrgPart, kOrg, "", 0},
    LdifField{"ou", Unit, kOrg, "", 1},
    LdifField{"orgunit", OrgPart, kOrg, "", 1},
    LdifField{"department", OrgPart, kOrg, "", 1},
    LdifField{"departmentnumber", OrgPart, kOrg, "", 1},
    LdifField{"title", Simple, kTitle, ""},
    LdifField{"description", Simple, kNote, ""},
    LdifField{"notes", Simple, kNote, ""},
    LdifField{"streetaddress", WorkAddress, kAdr, "work", kStreet},
    LdifField{"street", WorkAddress, kAdr, "work", kStreet},
    LdifField{"postaladdress", PostalLines, kAdr, "work", kStreet},
    LdifField{"mozillaworkstreet2", WorkAddress, kAdr, "work", kExtended},
    LdifField{"mozillapostaladdress2", WorkAddress, kAdr, "work", kExtended},
    LdifField{"streetaddress2", WorkAddress, kAdr, "work", kExtended},
    LdifField{"postofficebox", PostBox, kAdr, "work", kBox},
    LdifField{"l", WorkAddress, kAdr, "work", kCity},
    LdifField{"locality", WorkAddress, kAdr, "work", kCity},
    LdifField{"st", WorkAddress, kAdr, "work", kRegion},
    LdifField{"region", WorkAddress, kAdr, "work", kRegion},
    LdifField{"postalcode", WorkAddress, kAdr, "work", kCode},
    LdifField{"zip", WorkAddress, kAdr, "work", kCode},
    LdifField{"c", WorkAddress, kAdr, "work", kCountry},
    LdifField{"countryname", WorkAddress, kAdr, "work", kCountry},
    LdifField{"mozillahomestreet", HomeAddress, kAdr, "home", kStreet},
    LdifField{"homestreet", HomeAddress, kAdr, "home", kStreet},
    LdifField{"streethomeaddress", HomeAddress, kAdr, "home", kStreet},
    LdifField{"homepostaladdress", HomePostalLines, kAdr, "home", kStreet},
    LdifField{"mozillahomestreet2", HomeAddress, kAdr, "home", kExtended},
    LdifField{"mozillahomepostaladdress2", HomeAddress, kAdr, "home", kExtended},
    LdifField{"mozillahomelocalityname", HomeAddress, kAdr, "home", kCity},
    LdifField{"mozillahomestate", HomeAddress, kAdr, "home", kRegion},
    LdifField{"mozillahomepostalcode", HomeAddress, kAdr, "home", kCode},
    LdifField{"mozillahomecountryname", HomeAddress, kAdr, "home", kCountry},
    LdifField{"workurl", Url, kUrl, "work"},
    LdifField{"mozillaworkurl", Url, kUrl, "work"},
    LdifField{"labeleduri", Url, kUrl, "work"},
    LdifField{"homeurl", Url, kUrl, "home"},
    LdifField{"mozillahomeurl", Url, kUrl, "home"},
    LdifField{"birthyear", BirthYear, kBday, ""},
    LdifField{"birthmonth", BirthMonth, kBday, ""},
    LdifField{"birthday", BirthDay, kBday, ""},
    LdifField{"custom1", Simple, kCustom1, ""},
    LdifField{"custom2", Simple, kCustom2, ""},
    LdifField{"custom3", Simple, kCustom3, ""},
    LdifField{"custom4", Simple, kCustom4, ""},
    LdifField{"mozillacustom1", Simple, kCustom1, ""},
    LdifField{"mozillacustom2", Simple, kCustom2, ""},
    LdifField{"mozillacustom3", Simple, kCustom3, ""},
    LdifField{"mozillacustom4", Simple, kCustom4, ""},
    LdifField{"nsaimid", Simple, kAim, ""},
    LdifField{"nscpaimscreenname", Simple, kAim, ""},
    LdifField{"mozilla_aimscreenname", Simple, kAim, ""},
    LdifField{"uid", Uid, kUid, ""},
    LdifField{"modifytimestamp", TimeStamp, kRev, ""},
    LdifField{"jpegphoto", Photo, kPhoto, "JPEG"},
    LdifField{"member", Member, kMember, ""},
    LdifField{"uniquemember", Member, kMember, ""},
    LdifField{"display-name", ListName, kFn, ""},
};

constexpr LdifField kUnknown{"", Unknown, kNo, ""};

// The numbers of this table's names are those of its rows.
class Table {
 public:
    Table() {
        const auto before = static_cast<NameId>(names_.Count());
        rows_.resize(before, kNo);
        for (std::size_t i = 0; i < kFields.size(); ++i) {
            const NameId id = names_.Intern(kFields[i].Name);
            rows_.resize(std::max<std::size_t>(rows_.size(), id + 1), kNo);
            rows_[id] = static_cast<NameId>(i);
        }
    }
    [[nodiscard]] const LdifField& Find(std::string_view name) const {
        const NameId id = names_.Find(name);
        return id == kNo || rows_[id] == kNo ? kUnknown : kFields[rows_[id]];
    }

 private:
    FieldNames names_;
    std::vector<NameId> rows_;
};

}  // namespace

std::size_t LdifFieldCount() {
    return kFields.size();
}

const LdifField& LdifFieldAt(std::size_t index) {
    return index < kFields.size() ? kFields[index] : kUnknown;
}

const LdifField& LdifFieldOf(std::string_view name) {
    static const Table table;
    return table.Find(name);
}

}  // namespace orvik::book
