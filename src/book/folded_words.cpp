#include "book/folded_words.h"

#include "book/unicode_form.h"

namespace orvik::book {
namespace {

// Each row of blanks becomes one, and quotes go.
std::string Squeezed(std::string_view text) {
    std::string squeezed;
    for (const char c : text) {
        const bool blank = c == ' ' || (c >= '\t' && c <= '\r');
        if (blank && (squeezed.empty() || squeezed.back() == ' ')) {
            continue;
        }
        if (c != '"') {
            squeezed += blank ? ' ' : c;
        }
    }
    squeezed.resize(squeezed.ends_with(' ') ? squeezed.size() - 1 : squeezed.size());
    return squeezed;
}

}  // namespace

std::string FoldedWords(std::string_view text) {
    constexpr std::size_t kLongest = 400;
    return text.size() > kLongest ? std::string() : Squeezed(InForm(UnicodeForm::Folded, text));
}

}  // namespace orvik::book
