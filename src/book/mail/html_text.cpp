#include "book/mail/html_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "book/address_letters.h"
#include "book/field_names.h"

namespace orvik::book {
namespace {

void AppendLetter(std::uint32_t code, std::string& to) {
    constexpr std::uint32_t kLast = 0x10FFFF;
    if (code == 0 || code > kLast || (code >= 0xD800 && code < 0xE000)) {
        return;
    }
    const auto add = [&to](std::uint32_t byte) { to += static_cast<char>(byte); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0U | code >> 6U);
        add(0x80U | (code & 0x3FU));
    } else if (code < 0x10000) {
        add(0xE0U | code >> 12U);
        add(0x80U | (code >> 6U & 0x3FU));
        add(0x80U | (code & 0x3FU));
    } else {
        add(0xF0U | code >> 18U);
        add(0x80U | (code >> 12U & 0x3FU));
        add(0x80U | (code >> 6U & 0x3FU));
        add(0x80U | (code & 0x3FU));
    }
}

struct Entity {
    std::string_view Name;
    std::uint32_t Code;
};
constexpr std::array kEntities = {
    Entity{"amp", '&'},     Entity{"lt", '<'},      Entity{"gt", '>'},      Entity{"quot", '"'},
    Entity{"apos", '\''},   Entity{"nbsp", 0xA0},   Entity{"commat", '@'},  Entity{"period", '.'},
    Entity{"lowbar", '_'},  Entity{"hyphen", '-'},  Entity{"plus", '+'},    Entity{"num", '#'},
    Entity{"auml", 0xE4},   Entity{"ouml", 0xF6},   Entity{"uuml", 0xFC},   Entity{"szlig", 0xDF},
    Entity{"Auml", 0xC4},   Entity{"Ouml", 0xD6},   Entity{"Uuml", 0xDC},   Entity{"eacute", 0xE9},
    Entity{"egrave", 0xE8}, Entity{"agrave", 0xE0}, Entity{"aacute", 0xE1}, Entity{"iacute", 0xED},
    Entity{"oacute", 0xF3}, Entity{"uacute", 0xFA}, Entity{"ntilde", 0xF1}, Entity{"ccedil", 0xE7},
    Entity{"ecirc", 0xEA},  Entity{"acirc", 0xE2},  Entity{"ocirc", 0xF4},  Entity{"euml", 0xEB},
    Entity{"iuml", 0xEF},   Entity{"aring", 0xE5},  Entity{"aelig", 0xE6},  Entity{"oslash", 0xF8},
    Entity{"Aring", 0xC5},  Entity{"Oslash", 0xD8}, Entity{"Eacute", 0xC9}, Entity{"sect", 0xA7}};

// Appends the letter of an entity that begins a text with "&"; returns how long it is.
std::size_t TakeEntity(std::string_view text, std::string& to) {
    constexpr std::size_t kLongest = 12;
    std::size_t end = 1;
    const std::size_t most = std::min(text.size(), kLongest);
    while (end < most && (IsLetterOrDigit(text[end]) || text[end] == '#')) {
        ++end;
    }
    const std::string_view name = text.substr(1, end - 1);
    const std::size_t whole = end < text.size() && text[end] == ';' ? end + 1 : end;
    if (name.starts_with('#')) {
        const bool hex = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
        const std::string_view digits =
            name.substr(std::min<std::size_t>(name.size(), hex ? 2 : 1));
        std::uint32_t code = 0;
        const auto read =
            std::from_chars(digits.data(), digits.data() + digits.size(), code, hex ? 16 : 10);
        if (read.ec == std::errc() && read.ptr == digits.data() + digits.size()) {
            AppendLetter(code, to);
            return whole;
        }
    } else if (whole > end) {
        const auto* const found = std::find_if(kEntities.begin(),
                                               kEntities.end(),
                                               [&](const Entity& one) { return one.Name == name; });
        if (found != kEntities.end()) {
            AppendLetter(found->Code, to);
            return whole;
        }
    }
    to += '&';
    return 1;
}

void AppendDecoded(std::string_view text, std::string& to) {
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find('&'), text.size());
        to.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (!text.empty()) {
            text.remove_prefix(TakeEntity(text, to));
        }
    }
}

// Text between tags: its line breaks are blanks, and none begins a line.
void AppendShown(std::string_view text, bool keeps_lines, std::string& to) {
    const std::size_t before = to.size();
    AppendDecoded(text, to);
    if (keeps_lines) {
        return;
    }
    std::replace(to.begin() + static_cast<std::ptrdiff_t>(before), to.end(), '\n', ' ');
    if (before == 0 || to[before - 1] == '\n') {
        const std::size_t shown = std::min(to.find_first_not_of(" \t\r", before), to.size());
        to.erase(before, shown - before);
    }
}

// The length of a tag that begins a text; quotes may hold a ">", but hardly over lines.
std::size_t LengthOfTag(std::string_view text) {
    char quote = '\0';
    for (std::size_t i = 1; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != '\0') {
            quote = c == quote || c == '\n' ? '\0' : quote;
        } else if (c == '>') {
            return i + 1;
        } else if ((c == '"' || c == '\'') && text[i - 1] == '=') {
            quote = c;
        }
    }
    return text.size();
}

std::string_view NameOfTag(std::string_view tag) {
    std::size_t end = std::min<std::size_t>(tag.size(), tag.starts_with("</") ? 2 : 1);
    const std::size_t begin = end;
    while (end < tag.size() && IsLetterOrDigit(tag[end])) {
        ++end;
    }
    return tag.substr(begin, end - begin);
}

// These stand inside of words.
bool IsInline(std::string_view name) {
    constexpr std::array<std::string_view, 17> kNames = {"a",
                                                         "b",
                                                         "i",
                                                         "u",
                                                         "s",
                                                         "em",
                                                         "strong",
                                                         "span",
                                                         "font",
                                                         "wbr",
                                                         "tt",
                                                         "big",
                                                         "small",
                                                         "code",
                                                         "mark",
                                                         "sub",
                                                         "sup"};
    return std::any_of(
        kNames.begin(), kNames.end(), [name](auto one) { return SameName(one, name); });
}

// The address of a link, behind "mailto:".
void AppendLink(std::string_view tag, std::string& to) {
    constexpr std::string_view kScheme = "mailto:";
    for (std::size_t i = 0; i + kScheme.size() < tag.size(); ++i) {
        if ((tag[i] != 'm' && tag[i] != 'M') || !SameName(tag.substr(i, kScheme.size()), kScheme)) {
            continue;
        }
        const char quote = i > 0 && (tag[i - 1] == '"' || tag[i - 1] == '\'') ? tag[i - 1] : ' ';
        std::string_view link = tag.substr(i + kScheme.size());
        link = link.substr(0, std::min(link.find(quote), link.find('>')));
        std::string decoded;
        AppendDecoded(link, decoded);
        AppendMailto(decoded, to);
        return;
    }
}

// Skips to behind an end, if there is one.
void SkipBehind(std::string_view end, std::string_view& rest, std::size_t from) {
    const std::size_t found = rest.find(end, from);
    rest.remove_prefix(found == std::string_view::npos ? rest.size() : found + end.size());
}

// Text of programs, up to the tag that ends it.
void SkipProgram(std::string_view name, std::string_view& rest) {
    while (!rest.empty()) {
        const std::size_t found = std::min(rest.find("</"), rest.size());
        rest.remove_prefix(found);
        if (SameName(NameOfTag(rest), name) || rest.empty()) {
            return;
        }
        rest.remove_prefix(2);
    }
}

void AppendUnescaped(std::string_view text, std::string& to) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            to += static_cast<char>(byte);
            i += 2;
        } else {
            to += text[i];
        }
    }
}

}  // namespace

void AppendMailto(std::string_view link, std::string& to) {
    const auto add = [&to](std::string_view addresses) {
        to += '\n';
        AppendUnescaped(addresses, to);
    };
    const std::size_t mark = std::min(link.find('?'), link.size());
    add(link.substr(0, mark));
    std::string_view rest = link.substr(mark);
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const std::string_view one = rest.substr(0, rest.find('&'));
        rest.remove_prefix(one.size());
        const std::size_t equals = std::min(one.find('='), one.size());
        const std::string_view name = one.substr(0, equals);
        if (equals < one.size() &&
            (SameName(name, "to") || SameName(name, "cc") || SameName(name, "bcc"))) {
            add(one.substr(equals + 1));
        }
    }
    to += '\n';
}

void AppendHtmlText(std::string_view html, std::string& to) {
    // Behind the last end of a tag there is none that begins.
    const std::size_t last = html.rfind('>');
    const char* const end = html.data() + (last == std::string_view::npos ? 0 : last);
    bool keeps_lines = false;
    while (!html.empty()) {
        const std::size_t text = std::min(html.find('<'), html.size());
        AppendShown(html.substr(0, text), keeps_lines, to);
        html.remove_prefix(text);
        if (html.data() >= end) {
            AppendShown(html, keeps_lines, to);
            return;
        }
        const char next = html[1];
        if (html.starts_with("<!--")) {
            SkipBehind("-->", html, 4);
            continue;
        }
        if (!IsLetterOrDigit(next) && next != '/' && next != '!' && next != '?') {
            to += '<';
            html.remove_prefix(1);
            continue;
        }
        const std::string_view tag = html.substr(0, LengthOfTag(html));
        const std::string_view name = NameOfTag(tag);
        // Pages that were not made with care have "<ada@example.org>".
        const std::size_t at = tag.find('@');
        if (name.size() + 1 < tag.size() && at != std::string_view::npos &&
            tag.find_first_of(" \t\n=") == std::string_view::npos) {
            to.append(tag);
        } else if (!IsInline(name)) {
            to += '\n';
        }
        if (SameName(name, "pre")) {
            keeps_lines = next != '/';
        }
        AppendLink(tag, to);
        html.remove_prefix(tag.size());
        if (next != '/' && (SameName(name, "script") || SameName(name, "style"))) {
            SkipProgram(name, html);
        }
    }
}

}  // namespace orvik::book
