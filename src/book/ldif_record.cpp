#include "book/ldif_record.h"

#include <algorithm>
#include <array>

#include "app/text.h"
#include "book/carried_line.h"
#include "book/ldif_line_writer.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kList = "groupOfNames";

// Whether no component has several values.
bool HasSingleValues(std::string_view value) {
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(value, ';');
        std::string_view values = part.Text;
        if (TakePart(values, ',').More) {
            return false;
        }
    }
    return true;
}

// Whether no attribute would tell of a field; a name without any part is made up again.
bool IsEmpty(const Property& one) {
    return one.Value.find_first_not_of(";,") == std::string_view::npos && one.Name != field::kN;
}

// Readers take base64 that holds one for bytes.
bool HasNul(std::string_view value) {
    return value.find('\0') != std::string_view::npos;
}

}  // namespace

LdifRecordWriter::LdifRecordWriter(Book& book,
                                   const Directory& directory,
                                   LdifAttributes set,
                                   std::string& text)
    : book_(book), directory_(directory), set_(set), text_(text) {}

void LdifRecordWriter::Write(const Contact& contact,
                             const Identities& identities,
                             std::size_t number) {
    contact_ = &contact;
    named_ = parts_ = nicknamed_ = organised_ = work_ = home_ = false;
    identified_ = born_ = saved_ = false;
    emails_ = 0;
    phones_.clear();
    of_evolution_ = !FirstOf(book_, contact, field::kEvolutionList).empty();
    shown_ = NameOf(book_, contact).Shown;
    book_.TellLosses(contact);
    WriteHead(identities, number);
    for (const Property& one : contact.Properties) {
        WriteProperty(one);
    }
}

void LdifRecordWriter::WriteHead(const Identities& identities, std::size_t number) {
    dn_ = DnOfContact(book_, *contact_);
    if (dn_.empty() || HasNul(dn_)) {
        dn_ = std::string("cn=").append(identities.UidAt(number));
    }
    AppendLdifLine("dn", dn_, text_);
    AppendLdifLine("objectclass", "top", text_);
    if (contact_->Kind == ContactKind::List) {
        AppendLdifLine("objectclass", kList, text_);
    } else if (!IsOfOtherClass()) {
        AppendLdifLine("objectclass", "person", text_);
        if (set_ != LdifAttributes::Netscape) {
            AppendLdifLine("objectclass", "organizationalPerson", text_);
            AppendLdifLine("objectclass", "inetOrgPerson", text_);
        }
        if (IsOfMozilla()) {
            AppendLdifLine("objectclass", "mozillaAbPersonAlpha", text_);
        }
    }
    if (!shown_.empty() && !HasNul(shown_)) {
        AppendLdifLine("cn", shown_, text_);
        // KContacts calls its lists so, and knows no other name of one.
        if (set_ == LdifAttributes::KContacts && contact_->Kind == ContactKind::List) {
            AppendLdifLine("display-name", shown_, text_);
        }
    }
}

// What is no person in its directory stays none; its class is among its fields.
bool LdifRecordWriter::IsOfOtherClass() const {
    constexpr std::array<std::string_view, 7> kOthers = {"organizationalUnit",
                                                         "organization",
                                                         "organizationalRole",
                                                         "locality",
                                                         "country",
                                                         "domain",
                                                         "device"};
    const NameId name = book_.Names.Find("X-ORVIK-LDIF-objectclass");
    const auto& all = contact_->Properties;
    return name != FieldNames::kNone &&
           std::any_of(all.begin(), all.end(), [&](const Property& one) {
               return one.Name == name &&
                      std::any_of(kOthers.begin(), kOthers.end(), [&](std::string_view other) {
                          return SameName(one.Value, other);
                      });
           });
}

void LdifRecordWriter::WriteProperty(const Property& one) {
    const std::string_view name = book_.Names.Text(one.Name);
    const Fit fit = !HasNul(one.Value) && WriteInLanguage(one) ? Fit::All
                    : StartsAsName(name, kCarriedFromLdif)
                        ? WriteOwn(one, name.substr(kCarriedFromLdif.size()))
                    : IsEmpty(one) || HasNul(one.Value) || IsRepeated(one) ? Fit::None
                                                                           : WriteNatural(one);
    if (fit == Fit::All) {
        book_.Told.CountMore(What::Kept);
    } else {
        WriteCarried(one, fit);
    }
}

LdifRecordWriter::Fit LdifRecordWriter::WriteNatural(const Property& one) {
    const Fit fit_of_params = IsBare(one) ? Fit::All : Fit::Part;
    switch (one.Name) {
        case field::kFn:
            return WriteFirstName(one);
        case field::kN:
            return WriteName(one);
        case field::kNickname:
            return WriteNickname(one);
        case field::kEmail:
            if (of_evolution_) {
                return WriteMember(one);
            }
            if (set_ == LdifAttributes::Thunderbird && emails_ >= kAddressesOfThunderbird) {
                return Fit::None;
            }
            Line(EmailNames(emails_++), one.Value);
            return HasTypeOnly(one, "internet") ? Fit::All : fit_of_params;
        case field::kTel: {
            const PhoneNames phone = PhoneNamesOf(book_, one);
            if (set_ == LdifAttributes::Thunderbird &&
                !phones_.insert(phone.Names.In(set_)).second) {
                return Fit::None;
            }
            return Line(phone.Names, one.Value) && phone.Exact ? Fit::All : Fit::Part;
        }
        case field::kOrg:
            return WriteOrganisation(one);
        case field::kAdr:
            return WriteAddress(one);
        case field::kUrl:
            return WriteUrl(one);
        case field::kBday:
            return WriteBirthday(one);
        case field::kRev:
            return WriteTimeStamp(one);
        case field::kPhoto:
            return WritePhoto(one);
        case field::kMember:
        case field::kServerMember:
            return WriteMember(one);
        case field::kKind:
        case field::kServerKind:
            return SameName(one.Value, "group") ? fit_of_params : Fit::None;
        case field::kUid:
            // A name of a directory is one to log in with, and is read so.
            if (identified_ || StartsAsName(dn_, "uid=")) {
                return Fit::None;
            }
            identified_ = true;
            break;
        default:
            break;
    }
    return Line(SimpleNames(one.Name), one.Value) ? fit_of_params : Fit::None;
}

LdifRecordWriter::Fit LdifRecordWriter::WriteFirstName(const Property& one) {
    if (named_ || one.Value != shown_) {
        return Fit::None;
    }
    named_ = true;
    return IsBare(one) ? Fit::All : Fit::Part;
}

LdifRecordWriter::Fit LdifRecordWriter::WriteName(const Property& one) {
    if (parts_) {
        return Fit::None;
    }
    parts_ = true;
    constexpr std::array<std::string_view, 5> kNames = {"sn", "givenName", "", "vocation", ""};
    bool all = IsBare(one) && HasSingleValues(one.Value) && PartCount(one.Value) <= kNames.size();
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const std::string_view part = PartAt(one.Value, i);
        const bool known = !kNames[i].empty() && (i < 2 || set_ == LdifAttributes::KContacts);
        if (!part.empty() && known) {
            AppendLdifLine(kNames[i], Unescaped(part), text_);
        }
        all = all && (part.empty() || known);
    }
    return all ? Fit::All : Fit::Part;
}

LdifRecordWriter::Fit LdifRecordWriter::WriteNickname(const Property& one) {
    std::string_view rest = one.Value;
    // Which ones a second list had could not be told when it is read.
    if (nicknamed_ && !IsBare(one) && one.Value.find(',') != std::string_view::npos) {
        return Fit::None;
    }
    nicknamed_ = true;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(rest, ',');
        const std::string text = Unescaped(part.Text);
        if (text.empty()) {
            continue;
        }
        Line(SimpleNames(field::kNickname), text);
        if (IsOfMozilla()) {
            // The only name that Evolution and others know.
            AppendLdifLine("xmozillanickname", text, text_);
        }
    }
    return IsBare(one) ? Fit::All : Fit::Part;
}

LdifRecordWriter::Fit LdifRecordWriter::WriteOrganisation(const Property& one) {
    if (organised_) {
        return Fit::None;
    }
    organised_ = true;
    const bool of_kde = set_ == LdifAttributes::KContacts;
    const std::string firm = Unescaped(PartAt(one.Value, 0));
    const std::string unit = Unescaped(PartAt(one.Value, 1));
    if (!firm.empty()) {
        AppendLdifLine("o", firm, text_);
    }
    if (!unit.empty()) {
        AppendLdifLine(of_kde ? "department" : "ou", unit, text_);
    }
    const bool all = IsBare(one) && PartCount(one.Value) <= 2 && HasSingleValues(one.Value);
    return all ? Fit::All : Fit::Part;
}

LdifRecordWriter::Fit LdifRecordWriter::WriteAddress(const Property& one) {
    constexpr std::size_t kParts = 7;
    constexpr std::size_t kStreet = 2;
    const bool home = IsHomeAddress(book_, one);
    bool& written = home ? home_ : work_;
    if (written) {
        return Fit::None;
    }
    written = true;
    bool all = HasTypeOnly(one, home ? "home" : "work") && HasSingleValues(one.Value) &&
               PartCount(one.Value) <= kParts;
    for (std::size_t i = 0; i < kParts; ++i) {
        const std::string text = Unescaped(PartAt(one.Value, i));
        // A box without a street is read as one.
        const bool as_street = i == 0 && PartAt(one.Value, kStreet).empty();
        if (!text.empty() && (as_street || !Line(AddressNames(home, i), text))) {
            all = false;
        }
    }
    return all ? Fit::All : Fit::Part;
}

LdifRecordWriter::Fit LdifRecordWriter::WriteUrl(const Property& one) {
    const NameId label = book_.Names.Find("X-ORVIK-LABEL");
    const std::string_view text =
        label == FieldNames::kNone ? std::string_view{} : ParamOf(book_, one, label);
    const bool blank = one.Value.find(' ') != std::string_view::npos;
    if (!text.empty() && !blank && book_.DetailsOf(one).Params.size() == 2 &&
        SameName(ParamOf(book_, one, field::kType), "work")) {
        AppendLdifLine("labeledURI", std::string(one.Value).append(" ").append(text), text_);
        return Fit::All;
    }
    const bool home = IsHomeUrl(one);
    const std::string address = WithPlainColons(one.Value);
    Line(UrlNames(home), address);
    return HasTypeOnly(one, home ? "home" : "work") && address == one.Value ? Fit::All : Fit::Part;
}

void LdifRecordWriter::WriteCarried(const Property& one, Fit fit) {
    const std::string_view name = book_.Names.Text(one.Name);
    std::string attribute = ToLower(kCarriedFromVCard);
    for (const char c : ToLower(name)) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        attribute += letter ? c : '-';
    }
    if (fit == Fit::None) {
        attribute.append(";").append(kBesides);
    }
    AppendLdifLine(attribute, CarriedLine(book_, one), text_);
    Tell(one, attribute);
}

void LdifRecordWriter::Tell(const Property& one, std::string_view attribute) {
    book_.Told.Add({book_.Names.Text(one.Name),
                    one.Value,
                    contact_->From.File,
                    contact_->From.Line,
                    book_.Names.Intern(attribute),
                    What::Carried,
                    Reason::NotInTarget});
}

// What is there twice is read once from the names of programs: many know two for one field.
bool LdifRecordWriter::IsRepeated(const Property& one) const {
    const Property* const first = contact_->Properties.data();
    const auto before = std::min(static_cast<std::size_t>(&one - first), kMostCompared);
    return std::any_of(first, first + before, [&](const Property& other) {
        return other.Name == one.Name && other.Value == one.Value && IsOfOnePlace(one, other);
    });
}

// Whether two fields have the same attribute: a number may be the one at work and the one at home.
bool LdifRecordWriter::IsOfOnePlace(const Property& one, const Property& other) const {
    switch (one.Name) {
        case field::kTel:
            return PhoneNamesOf(book_, one).Names.In(set_) ==
                   PhoneNamesOf(book_, other).Names.In(set_);
        case field::kAdr:
            return IsHomeAddress(book_, one) == IsHomeAddress(book_, other);
        case field::kUrl:
            return IsHomeUrl(one) == IsHomeUrl(other);
        default:
            return true;
    }
}

bool LdifRecordWriter::IsHomeUrl(const Property& one) const {
    return SameName(ParamOf(book_, one, field::kType), "home");
}

bool LdifRecordWriter::Line(const LdifNames& names, std::string_view value) {
    const std::string_view name = names.In(set_);
    if (name.empty()) {
        return false;
    }
    AppendLdifLine(name, value, text_);
    return true;
}

bool LdifRecordWriter::IsOfMozilla() const {
    return set_ == LdifAttributes::Mozilla || set_ == LdifAttributes::Thunderbird;
}

bool LdifRecordWriter::IsBare(const Property& one) const {
    return one.Details == 0;
}

bool LdifRecordWriter::HasTypeOnly(const Property& one, std::string_view type) const {
    const Details& details = book_.DetailsOf(one);
    return details.Group.empty() && details.Params.size() == 1 &&
           details.Params[0].Name == field::kType && SameName(details.Params[0].Value, type);
}

}  // namespace orvik::book
