#include "book/unicode_form.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>

namespace orvik::book {

std::string InForm(UnicodeForm form, std::string_view text) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::Normalizer2* const normaliser =
        form == UnicodeForm::Composed     ? icu::Normalizer2::getNFCInstance(error)
        : form == UnicodeForm::Decomposed ? icu::Normalizer2::getNFDInstance(error)
                                          : icu::Normalizer2::getNFKCCasefoldInstance(error);
    std::string normal;
    if (U_SUCCESS(error) != 0) {
        icu::StringByteSink<std::string> sink(&normal);
        normaliser->normalizeUTF8(
            0, {text.data(), static_cast<std::int32_t>(text.size())}, sink, nullptr, error);
    }
    return U_SUCCESS(error) != 0 ? normal : std::string(text);
}

}  // namespace orvik::book
