#include "book/value_edit.h"

#include <algorithm>
#include <array>

#include "book/members.h"
#include "book/picture_bytes.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr std::string_view kMailto = "mailto:";

bool IsMember(const Property& one) {
    return one.Name == field::kMember || one.Name == field::kServerMember;
}

// Members by two names: the value alone would not make them others.
bool IsSaidTwice(const Book& book, const Property& one) {
    constexpr std::array kAlso = {kDnParam,
                                  std::string_view("X-EVOLUTION-DEST-EMAIL"),
                                  std::string_view("X-EVOLUTION-DEST-CONTACT-UID")};
    const auto params = book.DetailsOf(one).Params;
    return std::any_of(params.begin(), params.end(), [&](const Param& param) {
        const std::string_view name = book.Names.Text(param.Name);
        return std::any_of(kAlso.begin(), kAlso.end(), [&](std::string_view also) {
            return SameName(also, name);
        });
    });
}

}  // namespace

std::optional<std::string> EditableText(const Book& book, const Property& one) {
    const ValueForm form = ValueFormOf(book.Names, one.Name);
    if (form == ValueForm::Parts || form == ValueForm::List || EmbeddedBase64(book, one) ||
        IsSaidTwice(book, one)) {
        return std::nullopt;
    }
    if (IsMember(one) && IsNamedMember(book, one)) {
        return Unescaped(one.Value);
    }
    const bool mailto = IsMember(one) && StartsAsName(one.Value, kMailto);
    return std::string(one.Value.substr(mailto ? kMailto.size() : 0));
}

std::string ValueOfText(const Book& book, const Property& one, std::string_view text) {
    std::string value;
    if (IsMember(one) && IsNamedMember(book, one)) {
        AppendEscaped(text, value);
        return value;
    }
    if (IsMember(one) && StartsAsName(one.Value, kMailto)) {
        value = kMailto;
    }
    return value.append(text);
}

std::optional<std::size_t> FieldOfRemark(const Contact& contact, const Remark& remark) {
    const auto fields = contact.Properties;
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const Property& one) {
        return !remark.Value.empty() && one.Value == remark.Value;
    });
    return found == fields.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(found - fields.begin()));
}

std::vector<Property> FieldsWith(const Contact& contact,
                                 std::size_t field,
                                 std::string_view value) {
    std::vector<Property> fields(contact.Properties.begin(), contact.Properties.end());
    fields[field].Value = value;
    return fields;
}

std::vector<Property> FieldsWithout(const Contact& contact, const std::set<std::size_t>& fields) {
    std::vector<Property> left;
    for (std::size_t i = 0; i < contact.Properties.size(); ++i) {
        if (!fields.contains(i)) {
            left.push_back(contact.Properties[i]);
        }
    }
    return left;
}

}  // namespace orvik::book
