// The note of a nickname of Eudora: fields in brackets, and the text that is left.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvik::book {

struct EudoraField {
    std::string_view Name;
    std::string_view Value;
};

struct EudoraNote {
    std::vector<EudoraField> Fields;
    std::string Text;  // without blanks around it
};

// "<first:Ada><phone:555 0100>Rows" -> first Ada, phone 555 0100, "Rows". Brackets in a value
// count; what is never closed, and what has no name before a colon, stays in the text, as addresses
// of the web do. Line ends are those that Eudora writes, \x03.
[[nodiscard]] EudoraNote EudoraNoteOf(std::string_view note);

}  // namespace orvik::book
