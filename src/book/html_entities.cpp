#include "book/html_entities.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>

#include <unicode/unistr.h>

#include "book/address_letters.h"
#include "book/field_names.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

struct Entity {
    std::string_view Name;
    std::uint32_t Code = 0;
};

// People write the first ones in any case; the others hide addresses from programs.
constexpr std::array kEntities = {Entity{"amp", '&'},
                                  Entity{"lt", '<'},
                                  Entity{"gt", '>'},
                                  Entity{"quot", '"'},
                                  Entity{"apos", '\''},
                                  Entity{"commat", '@'},
                                  Entity{"period", '.'},
                                  Entity{"lowbar", '_'},
                                  Entity{"hyphen", '-'},
                                  Entity{"plus", '+'},
                                  Entity{"num", '#'}};

// Those of HTML 3.2, from U+00A0 on.
constexpr std::array<std::string_view, 96> kLatin = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

std::optional<std::uint32_t> NumberedLetter(std::string_view digits, int base) {
    std::uint32_t code = 0;
    const char* const end = digits.data() + digits.size();
    const auto [behind, error] = std::from_chars(digits.data(), end, code, base);
    const bool whole = !digits.empty() && error == std::errc() && behind == end;
    const bool letter = code < 0x110000 && (code < 0xD800 || code > 0xDFFF) &&
                        (code >= ' ' || code == '\t' || code == '\n' || code == '\r');
    return whole && letter ? std::optional(code) : std::nullopt;
}

// What stands between & and ; as the number of a letter.
std::optional<std::uint32_t> CodeOf(std::string_view name) {
    if (name.starts_with('#')) {
        const bool hex = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
        return NumberedLetter(name.substr(hex ? 2 : 1), hex ? 16 : 10);
    }
    for (const Entity& one : kEntities) {
        if (SameName(one.Name, name)) {
            return one.Code;
        }
    }
    const auto* const found = std::find(kLatin.begin(), kLatin.end(), name);
    return found == kLatin.end()
               ? std::nullopt
               : std::optional(0xA0 + static_cast<std::uint32_t>(found - kLatin.begin()));
}

// Appends the letter of an entity that begins a text with "&", and returns how long it is; 0 for
// what is none.
std::size_t AppendEntity(std::string_view text, std::string& to) {
    constexpr std::size_t kLongest = 12;
    const std::size_t most = std::min(text.size(), kLongest);
    std::size_t end = 1;
    while (end < most && (IsLetterOrDigit(text[end]) || text[end] == '#')) {
        ++end;
    }
    const bool ended = end < text.size() && text[end] == ';';
    const std::string_view name = text.substr(1, end - 1);
    // Old programs leave out what ends a number.
    const bool whole = end == text.size() || !IsLetterOrDigit(text[end]);
    const auto code = ended || (whole && name.starts_with('#')) ? CodeOf(name) : std::nullopt;
    if (!code) {
        return 0;
    }
    icu::UnicodeString(static_cast<UChar32>(*code)).toUTF8String(to);
    return end + (ended ? 1 : 0);
}

}  // namespace

void AppendWithoutEntities(std::string_view text, std::string& to) {
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find('&'), text.size());
        to.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) {
            return;
        }
        const std::size_t taken = AppendEntity(text, to);
        to += taken == 0 ? "&" : "";
        text.remove_prefix(std::max<std::size_t>(taken, 1));
    }
}

std::string WithoutEntities(std::string_view text) {
    std::string plain;
    AppendWithoutEntities(text, plain);
    return plain;
}

}  // namespace orvik::book
