#include "book/folded_words.h"

#include <cstddef>
#include <cstdint>

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>

namespace orvik::book {
namespace {

// One form for letters that look alike, and for any case.
std::string Folded(std::string_view text) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::Normalizer2* const folding = icu::Normalizer2::getNFKCCasefoldInstance(error);
    std::string folded;
    if (U_SUCCESS(error) != 0) {
        icu::StringByteSink<std::string> sink(&folded);
        folding->normalizeUTF8(
            0, {text.data(), static_cast<std::int32_t>(text.size())}, sink, nullptr, error);
    }
    return U_SUCCESS(error) != 0 ? folded : std::string(text);
}

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
    return text.size() > kLongest ? std::string() : Squeezed(Folded(text));
}

}  // namespace orvik::book
