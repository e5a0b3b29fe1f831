#include "book/ascii_domain.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

#include <unicode/uchar.h>
#include <unicode/uidna.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include "book/address_letters.h"
#include "book/field_names.h"

namespace orvik::book {
namespace {

constexpr std::string_view kAsciiForm = "xn--";

// ICU has its tables in itself, so nothing but memory can lack.
void CheckMemory(UErrorCode error) {
    if (U_FAILURE(error) != 0) {
        throw std::bad_alloc();
    }
}

// The text that an ICU function fills: it is called again with the room that it asks for.
template <class Text, class Fill>
Text Filled(const Fill& fill) {
    Text text(256, '\0');
    for (;;) {
        UErrorCode error = U_ZERO_ERROR;
        const std::int32_t length =
            fill(text.data(), static_cast<std::int32_t>(text.size()), error);
        const bool too_long = error == U_BUFFER_OVERFLOW_ERROR;
        CheckMemory(too_long ? U_ZERO_ERROR : error);
        text.resize(static_cast<std::size_t>(length));
        if (!too_long) {
            return text;
        }
    }
}

std::int32_t LengthOf(std::string_view text) {
    return static_cast<std::int32_t>(text.size());
}

const UIDNA* Rules() {
    constexpr std::uint32_t kOptions = UIDNA_USE_STD3_RULES | UIDNA_CHECK_BIDI |
                                       UIDNA_CHECK_CONTEXTJ | UIDNA_NONTRANSITIONAL_TO_ASCII |
                                       UIDNA_NONTRANSITIONAL_TO_UNICODE;
    static const std::unique_ptr<UIDNA, void (*)(UIDNA*)> rules = [] {
        UErrorCode error = U_ZERO_ERROR;
        UIDNA* const opened = uidna_openUTS46(kOptions, &error);
        CheckMemory(error);
        return std::unique_ptr<UIDNA, void (*)(UIDNA*)>(opened, uidna_close);
    }();
    return rules.get();
}

// The ASCII form, and in errors what is against it; whether it is too long is for the caller.
std::string Converted(std::string_view name, std::uint32_t& errors) {
    constexpr std::uint32_t kTooLong =
        UIDNA_ERROR_LABEL_TOO_LONG | UIDNA_ERROR_DOMAIN_NAME_TOO_LONG;
    return Filled<std::string>([&](char* to, std::int32_t room, UErrorCode& error) {
        UIDNAInfo info = UIDNA_INFO_INITIALIZER;
        const std::int32_t length =
            uidna_nameToASCII_UTF8(Rules(), name.data(), LengthOf(name), to, room, &info, &error);
        errors = info.errors & ~kTooLong;
        return length;
    });
}

// The letters without capitals, each still one.
std::u32string Folded(const std::u16string& text) {
    std::u32string letters;
    for (std::size_t at = 0; at < text.size();) {
        UChar32 letter = 0;
        U16_NEXT(text, at, text.size(), letter);
        letters += static_cast<char32_t>(u_foldCase(letter, U_FOLD_CASE_DEFAULT));
    }
    return letters;
}

bool IsMapped(std::string_view domain) {
    const auto source =
        Filled<std::u16string>([&](char16_t* to, std::int32_t room, UErrorCode& error) {
            std::int32_t length = 0;
            u_strFromUTF8(to, room, &length, domain.data(), LengthOf(domain), &error);
            return length;
        });
    const auto mapped =
        Filled<std::u16string>([&](char16_t* to, std::int32_t room, UErrorCode& error) {
            const UNormalizer2* const map =
                unorm2_getInstance(nullptr, "uts46", UNORM2_COMPOSE, &error);
            return unorm2_normalize(
                map, source.data(), static_cast<std::int32_t>(source.size()), to, room, &error);
        });
    return Folded(source) != Folded(mapped);
}

// Adds a label's ASCII form, without a look at its neighbours.
void AddLabel(std::string_view label, AsciiDomain& domain) {
    const bool ascii = IsPlainAscii(label);
    if (ascii && !StartsAsName(label, kAsciiForm)) {
        domain.Text += label;
        return;
    }
    std::uint32_t errors = 0;
    // There may be dots in it, of other letters than ".".
    const std::string form = Converted(label, errors);
    errors &= ~static_cast<std::uint32_t>(UIDNA_ERROR_BIDI);
    if (ascii) {
        domain.HasNoLetters = domain.HasNoLetters || errors != 0;
        domain.Text += label;
        return;
    }
    domain.IsRefused = domain.IsRefused || errors != 0 || form.ends_with('.');
    domain.Text += form;
}

// Labels that are read from the right and labels of other letters have to go together.
void CheckDirections(std::string_view name, AsciiDomain& domain) {
    std::uint32_t errors = 0;
    static_cast<void>(Converted(name, errors));
    if ((errors & UIDNA_ERROR_BIDI) != 0) {
        (IsPlainAscii(name) ? domain.HasNoLetters : domain.IsRefused) = true;
    }
}

}  // namespace

AsciiDomain AsciiDomainOf(std::string_view domain) {
    AsciiDomain found;
    std::string_view rest = domain;
    for (;;) {
        const std::size_t dot = rest.find('.');
        AddLabel(rest.substr(0, dot), found);
        if (dot == std::string_view::npos) {
            break;
        }
        found.Text += '.';
        rest.remove_prefix(dot + 1);
    }
    if (!IsPlainAscii(domain) || found.Text.find(kAsciiForm) != std::string::npos) {
        CheckDirections(domain, found);
    }
    if (found.IsRefused) {
        found.Text.clear();
    } else if (!IsPlainAscii(domain)) {
        found.IsMapped = IsMapped(domain);
    }
    return found;
}

}  // namespace orvik::book
