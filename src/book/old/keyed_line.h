// A line "key: value" of a book of text.

#pragma once

#include <optional>
#include <string_view>

#include "book/value_form.h"

namespace orvik::book {

struct KeyedLine {
    std::string_view Key;
    std::string_view Value;  // without blanks around it
};

// KeyedLineOf: nothing for a line without a key.
//   "Name:Al " -> "Name", "Al";  "Al" and ":Al" -> nothing
[[nodiscard]] inline std::optional<KeyedLine> KeyedLineOf(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
        return std::nullopt;
    }
    const KeyedLine found{WithoutBlanksAround(line.substr(0, colon)),
                          WithoutBlanksAround(line.substr(colon + 1))};
    return found.Key.empty() ? std::nullopt : std::optional(found);
}

}  // namespace orvik::book
