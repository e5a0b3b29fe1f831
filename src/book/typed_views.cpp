#include "book/typed_views.h"

#include "book/ldif_dn.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

void AddList(std::string_view list, std::vector<std::string>& texts) {
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(list, ',');
        if (!part.Text.empty()) {
            texts.push_back(Unescaped(part.Text));
        }
    }
}

// What Android wrote for a nickname: "vnd.android.cursor.item/nickname;Bob;1;;;".
std::string AndroidNickname(std::string_view value) {
    constexpr std::string_view kKind = "vnd.android.cursor.item/nickname";
    return PartAt(value, 0) == kKind ? Unescaped(PartAt(value, 1)) : std::string();
}

std::vector<const Property*> FieldsOf(const Contact& contact, NameId name) {
    std::vector<const Property*> fields;
    for (const Property& one : contact.Properties) {
        if (one.Name == name && !one.Value.empty()) {
            fields.push_back(&one);
        }
    }
    return fields;
}

std::vector<std::string> AllOf(const Contact& contact, NameId name) {
    std::vector<std::string> texts;
    for (const Property* const one : FieldsOf(contact, name)) {
        texts.emplace_back(one->Value);
    }
    return texts;
}

std::string ShownName(const Book& book, const Contact& contact, const PersonName& parts) {
    if (const auto fn = FirstOf(book, contact, field::kFn); !fn.empty()) {
        return std::string(fn);
    }
    const std::string between = parts.Given.empty() || parts.Family.empty() ? "" : " ";
    if (std::string both = parts.Given + between + parts.Family; !both.empty()) {
        return both;
    }
    std::string_view units = FirstOf(book, contact, field::kOrg);
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(units, ';');
        if (!part.Text.empty()) {
            return Unescaped(part.Text);
        }
    }
    if (const auto nicknames = NicknamesOf(book, contact); !nicknames.empty()) {
        return nicknames.front();
    }
    if (const auto address = FirstOf(book, contact, field::kEmail); !address.empty()) {
        return std::string(address);
    }
    const NameId dn = book.Names.Find("X-ORVIK-LDIF-dn");
    const std::string_view known = dn == FieldNames::kNone ? "" : FirstOf(book, contact, dn);
    // Records without a name are called by their UID.
    return StartsAsName(known, "cn=") ? "" : FirstOfDn(known);
}

}  // namespace

std::string_view ParamOf(const Book& book, const Property& property, NameId name) {
    for (const Param& param : book.DetailsOf(property).Params) {
        if (param.Name == name) {
            return param.Value;
        }
    }
    return {};
}

std::string_view FirstOf(const Book& book, const Contact& contact, NameId name) {
    std::string_view other_language;
    for (const Property& one : contact.Properties) {
        if (one.Name != name || one.Value.empty()) {
            continue;
        }
        if (ParamOf(book, one, field::kLanguage).empty()) {
            return one.Value;
        }
        other_language = other_language.empty() ? one.Value : other_language;
    }
    return other_language;
}

PersonName NameOf(const Book& book, const Contact& contact) {
    const std::string_view n = FirstOf(book, contact, field::kN);
    PersonName name;
    name.Family = Unescaped(PartAt(n, 0));
    name.Given = Unescaped(PartAt(n, 1));
    name.Middle = Unescaped(PartAt(n, 2));
    name.Prefix = Unescaped(PartAt(n, 3));
    name.Suffix = Unescaped(PartAt(n, 4));
    name.Shown = ShownName(book, contact, name);
    return name;
}

std::string ShownNameOf(const Book& book, const Contact& contact) {
    const std::string_view fn = FirstOf(book, contact, field::kFn);
    return fn.empty() ? NameOf(book, contact).Shown : std::string(fn);
}

std::vector<std::string> NicknamesOf(const Book& book, const Contact& contact) {
    const NameId old = book.Names.Find("X-NICKNAME");
    const NameId android = book.Names.Find("X-ANDROID-CUSTOM");
    std::vector<std::string> texts;
    for (const Property& one : contact.Properties) {
        if (one.Name == field::kNickname || one.Name == old) {
            AddList(one.Value, texts);
        } else if (one.Name == android) {
            if (std::string text = AndroidNickname(one.Value); !text.empty()) {
                texts.push_back(std::move(text));
            }
        }
    }
    return texts;
}

std::vector<std::string> AddressesOf(const Contact& contact) {
    return AllOf(contact, field::kEmail);
}

std::vector<const Property*> AddressFieldsOf(const Contact& contact) {
    return FieldsOf(contact, field::kEmail);
}

std::vector<std::string> PhonesOf(const Contact& contact) {
    return AllOf(contact, field::kTel);
}

std::string TextOf(const Book& book, const Property& property) {
    const bool list = ValueFormOf(book.Names, property.Name) == ValueForm::List;
    return list ? Unescaped(property.Value) : std::string(property.Value);
}

}  // namespace orvik::book
