#include "book/carried_line.h"

#include <algorithm>
#include <vector>

#include "book/value_form.h"
#include "book/vcard_line_writer.h"
#include "book/vcard_lines.h"

namespace orvik::book {

std::string CarriedLine(const Book& book, const Property& property) {
    const Details& details = book.DetailsOf(property);
    std::string line = details.Group.empty() ? "" : std::string(details.Group) + ".";
    line += book.Names.Text(property.Name);
    for (const Param& param : details.Params) {
        // 4.0 can hold any sign.
        static_cast<void>(
            AppendParam(Dialect::VCard40, book.Names.Text(param.Name), param.Value, line));
    }
    line += ":";
    if (ValueFormOf(book.Names, property.Name) == ValueForm::Text) {
        // A CR can stand in base64 as it is, and would not come back from its escape.
        std::string_view rest = property.Value;
        for (TakenPart part{{}, true}; part.More;) {
            const std::size_t length = std::min(rest.find('\r'), rest.size());
            part = {rest.substr(0, length), length < rest.size()};
            rest.remove_prefix(std::min(length + 1, rest.size()));
            AppendEscaped(part.Text, line);
            line += part.More ? "\r" : "";
        }
    } else {
        line += property.Value;
    }
    return line;
}

std::optional<Property> FromCarriedLine(Book& book, std::string_view line) {
    const auto parts = SplitVCardLine(line);
    if (!parts) {
        return std::nullopt;
    }
    std::vector<Param> params;
    std::string_view rest = parts->Params;
    while (const auto param = TakeParam(rest)) {
        if (param->Name.empty()) {
            return std::nullopt;
        }
        params.push_back({book.Names.Intern(param->Name), book.Keep(WithoutCarets(param->Value))});
    }
    Property property;
    property.Name = book.Names.Intern(parts->Name);
    property.Details = book.KeepDetails(book.Keep(parts->Group), params);
    const bool text = ValueFormOf(book.Names, property.Name) == ValueForm::Text;
    property.Value = book.Keep(text ? Unescaped(parts->Value) : std::string(parts->Value));
    return property;
}

}  // namespace orvik::book
