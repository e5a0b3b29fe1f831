// What a record writes in forms of its own: dates, pictures, members.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "book/ldif_dn.h"
#include "book/ldif_line_writer.h"
#include "book/ldif_record.h"
#include "book/transfer.h"
#include "book/typed_views.h"
#include "book/vcard_fields.h"

namespace orvik::book {
namespace {

bool IsDigitsAt(std::string_view text, std::size_t from, std::size_t count) {
    return text.size() >= from + count &&
           text.substr(from, count).find_first_not_of("0123456789") == std::string_view::npos;
}

std::string WithoutZeros(std::string_view number) {
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size() - 1));
    return std::string(number);
}

}  // namespace

LdifRecordWriter::Fit LdifRecordWriter::WriteBirthday(const Property& one) {
    // "19800412" or "--0412"; anything else is carried alone.
    const std::string date = DateIn(Dialect::VCard40, one.Value);
    const bool has_year = date.size() == 8 && IsDigitsAt(date, 0, 8);
    const bool no_year = date.size() == 6 && date.starts_with("--") && IsDigitsAt(date, 2, 4);
    const bool real = (has_year || no_year) && date.substr(date.size() - 4, 2) <= "12" &&
                      date.substr(date.size() - 4, 2) != "00" &&
                      date.substr(date.size() - 2) <= "31" && date.substr(date.size() - 2) != "00";
    if (born_ || !real || (has_year && date.starts_with("0000"))) {
        return Fit::None;
    }
    born_ = true;
    if (has_year) {
        AppendLdifLine("birthyear", WithoutZeros(date.substr(0, 4)), text_);
    }
    AppendLdifLine("birthmonth", WithoutZeros(date.substr(date.size() - 4, 2)), text_);
    AppendLdifLine("birthday", WithoutZeros(date.substr(date.size() - 2)), text_);
    return IsBare(one) ? Fit::All : Fit::Part;
}

LdifRecordWriter::Fit LdifRecordWriter::WriteTimeStamp(const Property& one) {
    const std::string time = DateIn(Dialect::VCard40, one.Value);
    const bool known = time.size() == 16 && IsDigitsAt(time, 0, 8) && time[8] == 'T' &&
                       IsDigitsAt(time, 9, 6) && time[15] == 'Z';
    if (saved_ || !known) {
        return Fit::None;
    }
    saved_ = true;
    AppendLdifLine("modifytimestamp", time.substr(0, 8) + time.substr(9), text_);
    return IsBare(one) ? Fit::All : Fit::Part;
}

LdifRecordWriter::Fit LdifRecordWriter::WritePhoto(const Property& one) {
    std::string bytes;
    // 4.0 has the bytes in an address.
    if (const auto uri = SplitDataUri(one.Value)) {
        if (!SameName(uri->Type, "image/jpeg") || !AppendBase64(uri->Base64, bytes)) {
            return Fit::None;
        }
        AppendLdifBase64("jpegPhoto", uri->Base64, text_);
        return IsBare(one) ? Fit::All : Fit::Part;
    }
    const bool jpeg = ParamOf(book_, one, field::kEncoding) == "b" &&
                      SameName(ParamOf(book_, one, field::kType), "JPEG");
    if (!jpeg || !AppendBase64(one.Value, bytes)) {
        return Fit::None;
    }
    AppendLdifBase64("jpegPhoto", one.Value, text_);
    return book_.DetailsOf(one).Params.size() == 2 && book_.DetailsOf(one).Group.empty()
               ? Fit::All
               : Fit::Part;
}

// A member is named exactly as its record is.
LdifRecordWriter::Fit LdifRecordWriter::WriteMember(const Property& one) {
    const bool evolution = one.Name == field::kEmail;
    const ListMember member = evolution ? directory_.OfEvolution(one) : directory_.MemberOf(one);
    const bool found = member.Record != ListMember::kNobody;
    std::string dn(one.Value);
    const Details& details = book_.DetailsOf(one);
    const NameId dn_param = book_.Names.Find(kDnParam);
    const bool only_dn = details.Params.size() == 1 && details.Params[0].Name == dn_param;
    bool all = !evolution && details.Group.empty() && (details.Params.empty() || only_dn);
    if (found) {
        dn = directory_.DnAt(member.Record);
    } else if (dn_param != FieldNames::kNone && !ParamOf(book_, one, dn_param).empty()) {
        dn = ParamOf(book_, one, dn_param);
    } else if (!IsDn(dn) && !member.Address.empty()) {
        dn = DnOf(member.Name, member.Address);
    } else if (!IsDn(dn)) {
        dn = DnOf(dn, {});
        all = false;
    }
    if (!found) {
        book_.TellMissing(*contact_, one);
    }
    AppendLdifLine("member", dn, text_);
    return all ? Fit::All : Fit::Part;
}

}  // namespace orvik::book
