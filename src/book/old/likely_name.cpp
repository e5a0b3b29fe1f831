#include "book/old/likely_name.h"

#include "book/value_form.h"

namespace orvik::book {
namespace {

std::string FieldOf(std::string_view family, std::string_view given) {
    std::string value;
    AppendEscaped(WithoutBlanksAround(family), value);
    value += ';';
    AppendEscaped(WithoutBlanksAround(given), value);
    return value + ";;;";
}

constexpr std::string_view kNameBlanks = " \t";

}  // namespace

std::string LikelyName(std::string_view name) {
    name = WithoutBlanksAround(name);
    const std::size_t comma = name.find(',');
    if (comma != std::string_view::npos) {
        return FieldOf(name.substr(0, comma), name.substr(comma + 1));
    }
    const std::size_t blank = name.find_last_of(kNameBlanks);
    return blank == std::string_view::npos ? FieldOf({}, name)
                                           : FieldOf(name.substr(blank + 1), name.substr(0, blank));
}

bool IsGuessedName(std::string_view name) {
    name = WithoutBlanksAround(name);
    return name.find(',') == std::string_view::npos &&
           name.find_first_of(kNameBlanks) != std::string_view::npos;
}

}  // namespace orvik::book
