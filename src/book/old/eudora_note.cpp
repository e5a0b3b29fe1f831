#include "book/old/eudora_note.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "app/text.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

// "first:Ada"
std::optional<EudoraField> EudoraFieldOf(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0) {
        return std::nullopt;
    }
    const EudoraField field{text.substr(0, colon), text.substr(colon + 1)};
    const bool name = std::all_of(field.Name.begin(), field.Name.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    });
    const bool web = field.Value.starts_with("//") || ToLower(field.Name) == "mailto";
    return name && !web ? std::optional(field) : std::nullopt;
}

// Where each bracket is closed; nowhere for one that is not.
std::vector<std::size_t> ClosesOf(std::string_view note) {
    std::vector<std::size_t> closes(note.size(), std::string_view::npos);
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < note.size(); ++i) {
        if (note[i] == '<') {
            open.push_back(i);
        } else if (note[i] == '>' && !open.empty()) {
            closes[open.back()] = i;
            open.pop_back();
        }
    }
    return closes;
}

}  // namespace

EudoraNote EudoraNoteOf(std::string_view note) {
    EudoraNote found;
    if (note.find('<') == std::string_view::npos) {
        found.Text = WithoutBlanksAround(note);
        return found;
    }
    const std::vector<std::size_t> closes = ClosesOf(note);
    std::string text;
    for (std::size_t i = 0; i < note.size(); ++i) {
        const bool closed = closes[i] != std::string_view::npos;
        const auto field = closed ? EudoraFieldOf(note.substr(i + 1, closes[i] - i - 1))
                                  : std::optional<EudoraField>();
        if (field) {
            found.Fields.push_back(*field);
            i = closes[i];
        } else {
            text += note[i];
        }
    }
    found.Text = WithoutBlanksAround(text);
    return found;
}

}  // namespace orvik::book
