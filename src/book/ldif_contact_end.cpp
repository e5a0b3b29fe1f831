// What a record of LDIF becomes when all of its lines are known.

#include <algorithm>
#include <charconv>
#include <string>

#include "book/ldif_contact.h"
#include "book/ldif_dn.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::array<std::string_view, 7> kClasses = {"top",
                                                      "person",
                                                      "organizationalPerson",
                                                      "inetOrgPerson",
                                                      "mozillaAbPersonAlpha",
                                                      "groupOfNames",
                                                      "groupOfUniqueNames"};

bool IsDigits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// A number within bounds as digits of that length; empty for anything else.
std::string Digits(std::string_view text, int least, int most, std::size_t length) {
    int number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    if (!IsDigits(text) || end.ec != std::errc{} || number < least || number > most) {
        return {};
    }
    std::string digits = std::to_string(number);
    return digits.insert(0, length - std::min(length, digits.size()), '0');
}

// The lines of a postal address in a directory: " $ " parts them, \24 is $ and \5C a backslash.
std::string PostalLinesOf(std::string_view text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view three = text.substr(i, 3);
        if (three == "\\24" || three == "\\5C" || three == "\\5c") {
            lines += three[1] == '2' ? '$' : '\\';
            i += 2;
        } else if (text[i] == '$') {
            lines.erase(lines.find_last_not_of(' ') + 1);
            lines += '\n';
            i = std::min(text.find_first_not_of(' ', i + 1), text.size()) - 1;
        } else {
            lines += text[i];
        }
    }
    return lines;
}

}  // namespace

void LdifContacts::TakePart(Parts& whole,
                            std::size_t part,
                            const LdifParts& parts,
                            std::string_view text) {
    std::string_view& place = whole.Texts[part];
    if (place.empty()) {
        place = text;
        whole.Line = whole.Line == 0 ? row_ : whole.Line;
    } else if (place != text) {
        CarryLate(parts, text);
    }
}

void LdifContacts::TakeOnce(std::string_view& place,
                            const LdifParts& parts,
                            std::string_view text) {
    if (place.empty()) {
        place = text;
    } else if (place != text) {
        CarryLate(parts, text);
    }
}

// Values keep their order: the first one stands at the end of the record, and the others behind it.
void LdifContacts::CarryLate(const LdifParts& parts, std::string_view text) {
    Carry(parts.Name, text);
    late_.push_back(properties_.back());
    properties_.pop_back();
}

void LdifContacts::CarryFirst(std::string_view name, std::string_view text) {
    Carry(name, text);
    late_.insert(late_.begin(), properties_.back());
    properties_.pop_back();
}

void LdifContacts::TakeObjectClass(const LdifParts& parts, std::string_view text) {
    constexpr std::string_view kList = "groupOf";
    if (SameName(text.substr(0, kList.size()), kList)) {
        contact_.Kind = ContactKind::List;
    }
    const bool known = std::any_of(kClasses.begin(), kClasses.end(), [text](std::string_view one) {
        return SameName(one, text);
    });
    if (!known) {
        Carry(parts.Name, text);
    }
}

void LdifContacts::TakeUrl(const LdifField& field, const LdifParts& parts, std::string_view text) {
    const std::size_t blank = text.find(' ');
    if (!SameName(parts.Name, "labeleduri") || blank == std::string_view::npos) {
        return PushOnce(field.Property, text, TypeDetails(field.Type));
    }
    const std::array params = {Param{field::kType, field.Type},
                               Param{book_.Names.Intern("X-ORVIK-LABEL"), text.substr(blank + 1)}};
    Push(field.Property, text.substr(0, blank), book_.KeepDetails({}, params));
}

void LdifContacts::Carry(std::string_view name,
                         std::string_view text,
                         std::span<const Param> params) {
    Push(attributes_.CarriedAs(name), text, book_.KeepDetails({}, params));
}

void LdifContacts::PushOnce(NameId name, std::string_view value, std::uint32_t details) {
    const auto end = properties_.begin() +
                     static_cast<std::ptrdiff_t>(std::min(properties_.size(), kMostCompared));
    const bool there = std::any_of(properties_.begin(), end, [&](const Property& one) {
        return one.Name == name && one.Value == value && one.Details == details;
    });
    if (!there) {
        Push(name, value, details);
    }
}

// The components of a property that several lines made up, each escaped.
void LdifContacts::PushParts(NameId name,
                             const Parts& whole,
                             std::size_t count,
                             std::string_view type) {
    if (whole.Line == 0) {
        return;
    }
    text_.clear();
    for (std::size_t i = 0; i < count; ++i) {
        text_.append(i == 0 ? "" : ";");
        AppendEscaped(whole.Texts[i], text_);
        if (whole.Texts[i].find('\r') != std::string_view::npos) {
            Doubt(Reason::ChangedSigns, {book_.Names.Text(name), {}, whole.Texts[i]});
        }
    }
    row_ = whole.Line;
    Push(name, book_.Keep(text_), TypeDetails(type));
}

void LdifContacts::Finish() {
    FinishUnit();
    const std::size_t merged = properties_.size();
    FinishPostal(work_, postal_, "postalAddress");
    FinishPostal(home_, home_postal_, "homePostalAddress");
    // Netscape 4 wrote the street into the post-office box.
    constexpr std::size_t kBox = 0;
    constexpr std::size_t kStreet = 2;
    if (!post_box_.empty()) {
        work_.Texts[work_.Texts[kStreet].empty() ? kStreet : kBox] = post_box_;
        work_.Line = work_.Line == 0 ? contact_.From.Line : work_.Line;
    }
    PushParts(field::kN, name_, 5, "");
    const bool unit_only = org_.Texts[0].empty() && !org_.Texts[1].empty();
    PushParts(field::kOrg, org_, org_.Texts[1].empty() && !unit_only ? 1 : 2, "");
    PushParts(field::kAdr, work_, 7, "work");
    PushParts(field::kAdr, home_, 7, "home");
    row_ = contact_.From.Line;
    if (!any_phone_.empty() && !Has(field::kTel, any_phone_)) {
        Push(field::kTel, any_phone_, TypeDetails("work"));
    }
    FinishBirthday();
    properties_.insert(properties_.end(), late_.begin(), late_.end());
    if (contact_.Kind == ContactKind::List && First(field::kFn).empty()) {
        Push(field::kFn, book_.Keep("List " + std::to_string(++nameless_)));
        Doubt(Reason::NoName, {});
    }
    FinishCarried(merged);
    FinishDn();
}

// The street where there is no other, wherever it stands in the record.
void LdifContacts::FinishPostal(Parts& whole, std::string_view postal, std::string_view name) {
    constexpr std::size_t kStreet = 2;
    std::string_view& street = whole.Texts[kStreet];
    const std::string lines = PostalLinesOf(postal);
    if (street.empty() && !postal.empty()) {
        street = book_.Keep(lines);
        whole.Line = whole.Line == 0 ? contact_.From.Line : whole.Line;
    } else if (street != lines && !postal.empty()) {
        row_ = contact_.From.Line;
        CarryFirst(name, postal);
    }
}

// KContacts writes the organisation under all of its names, and the role as the unit.
void LdifContacts::FinishUnit() {
    if (unit_.empty()) {
        return;
    }
    std::string_view& place = org_.Texts[1];
    row_ = contact_.From.Line;
    if (of_kcontacts_) {
        Push(field::kRole, unit_);
    } else if (place.empty()) {
        place = unit_;
        org_.Line = org_.Line == 0 ? row_ : org_.Line;
    } else if (place != unit_) {
        CarryFirst("ou", unit_);
    }
}

void LdifContacts::FinishBirthday() {
    if (birth_[0].empty() && birth_[1].empty() && birth_[2].empty()) {
        return;
    }
    const std::string year = Digits(birth_[0], 1, 9999, 4);
    const std::string month = Digits(birth_[1], 1, 12, 2);
    const std::string day = Digits(birth_[2], 1, 31, 2);
    std::string date;
    if (!month.empty() && !day.empty()) {
        date = (year.empty() ? "-" : year) + "-" + month + "-" + day;
    } else if (!year.empty() && !month.empty()) {
        date = year + "-" + month;
    } else {
        date = year;
    }
    if (!date.empty()) {
        Push(field::kBday, book_.Keep(date));
    }
    // What the date does not hold.
    constexpr std::array<std::string_view, 3> kNames = {"birthyear", "birthmonth", "birthday"};
    const std::array held = {
        !year.empty(), !month.empty() && date.size() > 4, !day.empty() && !month.empty()};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (!birth_[i].empty() && !held[i]) {
            Carry(kNames[i], birth_[i]);
        }
    }
}

// A name that follows from the fields need not be kept.
void LdifContacts::FinishDn() {
    text_.clear();
    AppendDn(First(field::kFn), First(field::kEmail), text_);
    if (!dn_.empty() && dn_ != text_) {
        Carry("dn", dn_);
    }
}

bool LdifContacts::Has(NameId name, std::string_view value) const {
    const auto end = properties_.begin() +
                     static_cast<std::ptrdiff_t>(std::min(properties_.size(), kMostCompared));
    return std::any_of(properties_.begin(), end, [&](const Property& one) {
        return one.Name == name && one.Value == value;
    });
}

std::string_view LdifContacts::First(NameId name) const {
    const auto found = std::find_if(properties_.begin(),
                                    properties_.end(),
                                    [name](const Property& one) { return one.Name == name; });
    return found == properties_.end() ? std::string_view{} : found->Value;
}

std::uint32_t LdifContacts::TypeDetails(std::string_view type) {
    if (type.empty()) {
        return 0;
    }
    const auto found = std::find_if(
        types_.begin(), types_.end(), [type](const auto& row) { return row.first == type; });
    if (found != types_.end()) {
        return found->second;
    }
    const std::array params = {Param{field::kType, type}};
    types_.emplace_back(type, book_.KeepDetails({}, params));
    return types_.back().second;
}

std::string_view LdifContacts::AsPart(std::string_view text) {
    if (!NeedsEscapes(text)) {
        return text;
    }
    if (text.find('\r') != std::string_view::npos) {
        Doubt(Reason::ChangedSigns, {{}, {}, text});
    }
    std::string part;
    AppendEscaped(text, part);
    return book_.Keep(part);
}

void LdifContacts::Doubt(Reason reason, const LdifParts& parts) {
    book_.Told.Add({parts.Name,
                    parts.Value,
                    file_,
                    contact_.From.Line,
                    FieldNames::kNone,
                    What::Doubtful,
                    reason});
}

}  // namespace orvik::book
