// Attributes that a record has besides those of programs: its own ones, and texts in other
// languages.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "book/ldif_line_writer.h"
#include "book/ldif_lines.h"
#include "book/ldif_record.h"
#include "book/transfer.h"
#include "book/typed_views.h"

namespace orvik::book {
namespace {

// Whether a line can begin so, whatever a card called its field, and put into its parameters.
bool IsAttribute(std::string text, std::string_view name, std::string_view options) {
    text += ':';
    const auto parts = SplitLdifLine(text);
    return parts && parts->Name == name && parts->Options == options && IsSafeString(options);
}

}  // namespace

// Directories have a text in other languages behind the plain one, which programs know.
bool LdifRecordWriter::WriteInLanguage(const Property& one) {
    const Details& details = book_.DetailsOf(one);
    if (details.Params.size() != 1 || details.Params[0].Name != field::kLanguage ||
        !details.Group.empty() || one.Value.empty() ||
        ValueFormOf(book_.Names, one.Name) != ValueForm::Text || !HasPlain(one.Name)) {
        return false;
    }
    const std::string_view name = one.Name == field::kFn ? "cn" : SimpleNames(one.Name).In(set_);
    const std::string options = "lang-" + std::string(details.Params[0].Value);
    std::string attribute(name);
    attribute.append(";").append(options);
    if (name.empty() || options.find(';') != std::string::npos ||
        !IsAttribute(attribute, name, options)) {
        return false;
    }
    AppendLdifLine(attribute, one.Value, text_);
    return true;
}

bool LdifRecordWriter::HasPlain(NameId name) const {
    const auto& all = contact_->Properties;
    const auto most = static_cast<std::ptrdiff_t>(std::min(all.size(), kMostCompared));
    return std::any_of(all.begin(), all.begin() + most, [&](const Property& one) {
        return one.Name == name && IsBare(one) && !one.Value.empty();
    });
}

LdifRecordWriter::Fit LdifRecordWriter::WriteOwn(const Property& one, std::string_view name) {
    if (SameName(name, "dn")) {
        return one.Value == dn_ && IsBare(one) ? Fit::All : Fit::None;
    }
    const NameId option = book_.Names.Find("X-ORVIK-OPTIONS");
    const std::string_view options =
        option == FieldNames::kNone ? std::string_view{} : ParamOf(book_, one, option);
    std::string attribute(name);
    attribute.append(options.empty() ? "" : ";").append(options);
    const bool place = ParamOf(book_, one, field::kValue) == "uri";
    const bool encoded = ParamOf(book_, one, field::kEncoding) == "b";
    const std::size_t known = (options.empty() ? 0U : 1U) + (place ? 1U : 0U) + (encoded ? 1U : 0U);
    const Details& details = book_.DetailsOf(one);
    std::string bytes;
    if (!IsAttribute(attribute, name, options) || (place && !IsSafeString(one.Value)) ||
        (encoded && !AppendBase64(one.Value, bytes)) || !details.Group.empty() ||
        details.Params.size() != known) {
        return Fit::None;
    }
    // A strict reader would refuse the whole file for such a line.
    if (SameName(name, "no-field")) {
        Tell(one, name);
    }
    if (encoded) {
        AppendLdifBase64(attribute, one.Value, text_);
    } else if (place) {
        AppendLdifUrl(attribute, one.Value, text_);
    } else {
        AppendLdifLine(attribute, one.Value, text_);
    }
    return Fit::All;
}

}  // namespace orvik::book
