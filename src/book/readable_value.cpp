#include "book/readable_value.h"

#include "book/csv_fields.h"
#include "book/csv_kinds.h"
#include "book/value_form.h"

namespace orvik::book {

bool HoldsSomething(std::string_view value) {
    return value.find_first_not_of(" \t\r\n;,") != std::string_view::npos;
}

bool IsHousekeeping(const Book& book, const Property& one) {
    switch (one.Name) {
        case field::kUid:
        case field::kRev:
        case field::kProdId:
        case field::kVersion:
        case field::kProfile:
            return true;
        case field::kKind:
        case field::kServerKind:
            return SameName(one.Value, "individual");
        case field::kClass:
            return SameName(one.Value, "public");
        case field::kMozillaHtml:
            return !SameName(one.Value, "true");
        case field::kAbLabel:
            // It is written with what it stands beside.
            return !book.DetailsOf(one).Group.empty();
        default:
            break;
    }
    const std::string_view name = book.Names.Text(one.Name);
    return SameName(name, "X-ORVIK-LDIF-dn") || SameName(name, "X-ORVIK-LDIF-objectclass") ||
           SameName(name, "X-ORVIK-VCARD-VERSION");
}

std::string ReadableValue(const Book& book, const Property& one) {
    const ValueForm form = ValueFormOf(book.Names, one.Name);
    if (form == ValueForm::Text) {
        return std::string(one.Value);
    }
    if (form == ValueForm::Verbatim) {
        return Unescaped(one.Value);
    }
    std::string text;
    std::string_view rest = one.Value;
    for (TakenPart part{{}, true}; part.More;) {
        part = TakePart(rest, form == ValueForm::List ? ',' : ';');
        std::string_view values = part.Text;
        for (TakenPart value{{}, true}; value.More;) {
            value = TakePart(values, ',');
            const std::string plain = Unescaped(value.Text);
            const std::string_view shown = WithoutBlanksAround(plain);
            text.append(text.empty() || shown.empty() ? "" : ", ").append(shown);
        }
    }
    return text;
}

std::string LabelOfValue(const Book& book, const Property& one) {
    for (std::size_t i = 0; i < CsvFieldCount(); ++i) {
        const CsvField& field = CsvFieldAt(i);
        const bool whole = field.Meaning == CsvMeaning::Simple ||
                           field.Meaning == CsvMeaning::Date ||
                           field.Meaning == CsvMeaning::Photo ||
                           field.Meaning == CsvMeaning::Html || field.Meaning == CsvMeaning::Values;
        if (field.Property == one.Name && whole) {
            return Capitalised(ShownName(field));
        }
    }
    std::string_view name = book.Names.Text(one.Name);
    for (const std::string_view ours : {kCarriedFromLdif, kCarriedFromVCard}) {
        name.remove_prefix(StartsAsName(name, ours) ? ours.size() : 0);
    }
    return one.Name == field::kImpp ? "Messenger" : std::string(name);
}

std::string Grouped(std::size_t number) {
    constexpr std::size_t kGroup = 3;
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > kGroup; at -= kGroup) {
        text.insert(at - kGroup, " ");
    }
    return text;
}

}  // namespace orvik::book
