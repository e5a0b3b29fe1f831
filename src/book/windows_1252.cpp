#include "book/windows_1252.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "app/encoding.h"
#include "book/charset_converter.h"
#include "book/unicode_form.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

// The letter that a text begins with; the text moves behind it.
char32_t TakeLetter(std::string_view& text) {
    const Utf8Letter letter = FirstLetter(text);
    // Bytes that are no letter are none of this set either.
    text.remove_prefix(std::max<std::size_t>(letter.Length, 1));
    return letter.Code;
}

// Marks stand apart from U+0300 on, and ICU takes no text of 2 GiB at once.
bool MayCompose(std::string_view text) {
    return text.find_first_of("\xCC\xCD") != std::string_view::npos && text.size() < (1U << 30U);
}

}  // namespace

Windows1252::Windows1252() {
    auto converter = CharsetConverter::Named("windows-1252");
    constexpr unsigned kFirst = 0x80;
    for (unsigned byte = kFirst; byte < 0x100 && converter; ++byte) {
        const char one = static_cast<char>(byte);
        std::string letter;
        if (converter->Append({&one, 1}, letter) == 0) {
            std::string_view rest = letter;
            bytes_.emplace(TakeLetter(rest), one);
        }
    }
}

char Windows1252::ByteOf(char32_t letter) const {
    const auto found = bytes_.find(letter);
    return found == bytes_.end() ? '\0' : found->second;
}

bool Windows1252::Has(std::string_view text) const {
    std::string composed;
    if (MayCompose(text)) {
        composed = InForm(UnicodeForm::Composed, text);
        text = composed;
    }
    for (text.remove_prefix(AsciiLength(text)); !text.empty();
         text.remove_prefix(AsciiLength(text))) {
        const char32_t letter = TakeLetter(text);
        if (ByteOf(letter) == '\0') {
            return false;
        }
    }
    return true;
}

void Windows1252::Append(std::string_view text, std::string& to) const {
    std::string composed;
    if (MayCompose(text)) {
        composed = InForm(UnicodeForm::Composed, text);
        text = composed;
    }
    for (;;) {
        const std::size_t plain = AsciiLength(text);
        to.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) {
            return;
        }
        const char byte = ByteOf(TakeLetter(text));
        to += byte == '\0' ? '?' : byte;
    }
}

}  // namespace orvik::book
