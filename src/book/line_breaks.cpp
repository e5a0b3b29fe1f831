#include "book/line_breaks.h"

#include <algorithm>
#include <cstddef>

namespace orvik::book {
namespace {

constexpr std::string_view kWritten = "\\n";

}  // namespace

std::string BreaksOf(std::string_view value, ValueForm form) {
    const bool verbatim = form == ValueForm::Verbatim;
    const bool told = value.find('\r') == std::string_view::npos &&
                      (!verbatim || value.find('\n') == std::string_view::npos);
    if (told || (!verbatim && form != ValueForm::Text)) {
        return {};
    }
    std::string breaks;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool pair = value.substr(i, 2) == "\r\n";
        if (pair || value[i] == '\r' || value[i] == '\n') {
            breaks += pair ? 'w' : value[i] == '\r' ? 'r' : 'l';
            i += pair ? 1 : 0;
        } else if (verbatim && value.substr(i, kWritten.size()) == kWritten) {
            breaks += 'n';
        }
    }
    const std::size_t last = breaks.find_last_not_of(breaks.back());
    breaks.resize(last == std::string::npos ? 1 : last + 2);
    return breaks;
}

std::string WithBreaks(std::string_view value, std::string_view breaks, ValueForm form) {
    const std::string_view wanted = form == ValueForm::Text ? "\n" : kWritten;
    if (breaks.empty()) {
        return std::string(value);
    }
    std::string text;
    for (std::size_t number = 0;; ++number) {
        const std::size_t at = value.find(wanted);
        text += value.substr(0, at);
        if (at == std::string_view::npos) {
            return text;
        }
        const char letter = breaks[std::min(number, breaks.size() - 1)];
        text += letter == 'w' ? "\r\n" : letter == 'r' ? "\r" : letter == 'l' ? "\n" : wanted;
        value.remove_prefix(at + wanted.size());
    }
}

}  // namespace orvik::book
