#include "book/old/html_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include <unicode/unistr.h>

#include "book/old/html_tags.h"
#include "book/utf8.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

struct Entity {
    std::string_view Name;
    std::uint32_t Code = 0;
};

constexpr std::array kEntities = {
    Entity{"amp", '&'},
    Entity{"lt", '<'},
    Entity{"gt", '>'},
    Entity{"quot", '"'},
    Entity{"apos", '\''},
};

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

std::optional<std::uint32_t> NumberOf(std::string_view digits, int base) {
    std::uint32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [behind, error] = std::from_chars(digits.data(), end, number, base);
    const bool whole = !digits.empty() && error == std::errc() && behind == end;
    return whole ? std::optional(number) : std::nullopt;
}

// What stands between & and ; as the number of a letter; nothing for what is no entity.
std::optional<std::uint32_t> CodeOf(std::string_view name) {
    if (name.starts_with('#')) {
        const bool hex = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
        const auto code = NumberOf(name.substr(hex ? 2 : 1), hex ? 16 : 10);
        const bool letter = code && *code < 0x110000 && (*code < 0xD800 || *code > 0xDFFF) &&
                            (*code >= ' ' || *code == '\t' || *code == '\n' || *code == '\r');
        return letter ? code : std::nullopt;
    }
    for (const Entity& one : kEntities) {
        if (SameName(one.Name, name)) {
            return one.Code;
        }
    }
    const auto* const found = std::find(kLatin.begin(), kLatin.end(), name);
    if (found == kLatin.end()) {
        return std::nullopt;
    }
    return 0xA0 + static_cast<std::uint32_t>(found - kLatin.begin());
}

// Lines of a note are indented as the tags beside them.
void EndLine(std::string& to) {
    to.resize(to.find_last_not_of(" \t\r") + 1);
    to += '\n';
}

std::string Trimmed(std::string_view text) {
    std::string lines;
    for (bool more = true; more;) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines += WithoutBlanksAround(text.substr(0, end));
        more = end < text.size();
        if (more) {
            EndLine(lines);
            text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
        }
    }
    return std::string(WithoutBlanksAround(lines));
}

}  // namespace

std::string WithoutEntities(std::string_view text) {
    constexpr std::size_t kLongest = 10;
    std::string plain;
    while (!text.empty()) {
        const std::size_t begin = std::min(text.find('&'), text.size());
        plain += text.substr(0, begin);
        text.remove_prefix(begin);
        const std::size_t end = text.substr(0, kLongest).find(';');
        const auto code =
            end == std::string_view::npos ? std::nullopt : CodeOf(text.substr(1, end - 1));
        if (code) {
            icu::UnicodeString(static_cast<UChar32>(*code)).toUTF8String(plain);
            text.remove_prefix(end + 1);
        } else if (!text.empty()) {
            plain += '&';
            text.remove_prefix(1);
        }
    }
    return plain;
}

std::string HtmlText(std::string_view piece) {
    std::string text;
    const char* from = piece.data();
    HtmlTags tags(piece);
    for (HtmlTag tag; tags.Next(tag);) {
        const bool shown = tag.Kind != HtmlTagKind::Break && tag.Kind != HtmlTagKind::Other;
        const char* const end = tag.Span.data() + tag.Span.size();
        text.append(from, shown ? end : tag.Span.data());
        from = end;
        if (tag.Kind == HtmlTagKind::Break) {
            const std::string_view rest = tags.Rest();
            const std::size_t next = std::min(rest.find_first_not_of(" \t"), rest.size());
            const bool ends = next < rest.size() && (rest[next] == '\r' || rest[next] == '\n');
            text += ends ? "" : "\n";
        }
    }
    text.append(from, piece.data() + piece.size());
    return WithoutEntities(Trimmed(text));
}

std::string WithoutPercents(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto code = text[i] == '%' && i + 2 < text.size()
                              ? NumberOf(text.substr(i + 1, 2), 16)
                              : std::nullopt;
        if (code && *code >= ' ' && *code != 0x7F) {
            plain += static_cast<char>(*code);
            i += 2;
        } else {
            plain += text[i];
        }
    }
    const bool twice = std::count(plain.begin(), plain.end(), '@') > 1;
    return twice || CountUtf8(plain).Bad > 0 ? std::string(text) : plain;
}

}  // namespace orvik::book
